#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <pugixml.hpp>

#include "foundation/Base64.h"
#include "foundation/Error.h"
#include "foundation/PropertyList.h"
#include "foundation/PropertyListDate.h"
#include "foundation/Utf8.h"

namespace zenivo {
namespace {

constexpr std::string_view kWhiteSpace = " \t\r\n";

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kWhiteSpace);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kWhiteSpace) - first + 1);
}

template <class Number>
std::optional<Number> numberFromText(std::string_view text) {
  text = trimmed(text);
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
  Number number{};
  const char* end = text.data() + text.size();
  const auto parsed = std::from_chars(text.data(), end, number);
  if (parsed.ec != std::errc() || parsed.ptr != end) return std::nullopt;
  return number;
}

bool isText(pugi::xml_node node) {
  return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

class Parser {
 public:
  Parser(std::string_view xml, Error* error) : xml_(xml), error_(error) {}

  std::optional<PropertyList> parse() {
    if (xml_.size() > kPropertyListMaximumBytes) {
      return failed(0, fmt::format("longer than {} bytes", kPropertyListMaximumBytes));
    }
    const std::size_t forbidden = firstByteNotAllowedInXml(xml_);
    if (forbidden != std::string_view::npos) {
      return failed(forbidden, "not UTF-8, or a character that XML does not allow");
    }
    constexpr unsigned kOptions = pugi::parse_escapes | pugi::parse_cdata | pugi::parse_eol |
                                  pugi::parse_ws_pcdata_single | pugi::parse_doctype;
    pugi::xml_document document;
    const pugi::xml_parse_result result =
        document.load_buffer(xml_.data(), xml_.size(), kOptions, pugi::encoding_utf8);
    if (!result) return failed(static_cast<std::size_t>(result.offset), result.description());
    const std::optional<pugi::xml_node> root = onlyValueIn(document);
    return root ? value(*root, 1) : std::nullopt;
  }

 private:
  std::nullopt_t failed(std::size_t offset, std::string_view why) {
    const auto line = 1 + std::ranges::count(xml_.substr(0, offset), '\n');
    fail(error_, {.description = fmt::format("line {}: {}", line, why)});
    return std::nullopt;
  }

  std::nullopt_t failed(pugi::xml_node node, std::string_view why) {
    return failed(static_cast<std::size_t>(std::max<std::ptrdiff_t>(node.offset_debug(), 0)), why);
  }

  /// The value element of <plist>, the only element of the document.
  std::optional<pugi::xml_node> onlyValueIn(const pugi::xml_document& document) {
    pugi::xml_node plist;
    for (const pugi::xml_node node : document.children()) {
      if (node.type() == pugi::node_doctype) {
        if (std::string_view(node.value()).find('[') != std::string_view::npos) {
          return failed(node, "declarations of the document's own are not accepted");
        }
      } else if (plist || std::string_view(node.name()) != "plist") {
        return failed(node, "a property list is one <plist> element");
      } else {
        plist = node;
      }
    }
    const auto values = elementsOf(plist);
    if (!values) return std::nullopt;
    if (values->size() != 1) return failed(plist, "<plist> holds exactly one value");
    return values->front();
  }

  /// The child elements; between them only white space may stand.
  std::optional<std::vector<pugi::xml_node>> elementsOf(pugi::xml_node node) {
    std::vector<pugi::xml_node> elements;
    for (const pugi::xml_node child : node.children()) {
      if (child.type() == pugi::node_element) {
        elements.push_back(child);
      } else if (!isText(child) || !trimmed(child.value()).empty()) {
        return failed(child, fmt::format("unexpected text in <{}>", node.name()));
      }
    }
    return elements;
  }

  /// The text of an element that holds nothing else.
  std::optional<std::string> textOf(pugi::xml_node node) {
    std::string text;
    for (const pugi::xml_node child : node.children()) {
      if (!isText(child)) return failed(child, fmt::format("<{}> holds text only", node.name()));
      text += child.value();
    }
    // A character given by its number escapes the check of the whole document.
    if (firstByteNotAllowedInXml(text) != std::string_view::npos) {
      return failed(node, "a character that XML does not allow");
    }
    return text;
  }

  std::optional<PropertyList> value(pugi::xml_node node, int depth) {
    if (depth > kPropertyListMaximumDepth) {
      return failed(node, fmt::format("nested deeper than {}", kPropertyListMaximumDepth));
    }
    const std::string_view type(node.name());
    if (type == "dict") return dictionary(node, depth);
    if (type == "array") return array(node, depth);
    const std::optional<std::string> text = textOf(node);
    return text ? scalar(node, type, *text) : std::nullopt;
  }

  std::optional<PropertyList> scalar(pugi::xml_node node, std::string_view type,
                                     const std::string& text) {
    if (type == "string") return text;
    if ((type == "true" || type == "false") && text.empty()) return type == "true";
    if (type == "integer") return integer(node, text);
    if (type == "real") return checked(node, numberFromText<double>(text));
    if (type == "date") return checked(node, dateFromPropertyListString(trimmed(text)));
    if (type == "data") return checked(node, dataFromBase64String(text));
    return failed(node, fmt::format("<{}> is no value of a property list", type));
  }

  /// Beyond 64 bits a whole number is read as the nearest real, so that one such value does
  /// not make all others unreadable.
  std::optional<PropertyList> integer(pugi::xml_node node, const std::string& text) {
    if (const auto whole = numberFromText<std::int64_t>(text)) return *whole;
    const bool isWhole = trimmed(text).find_first_not_of("+-0123456789") == std::string_view::npos;
    return checked(node, isWhole ? numberFromText<double>(text) : std::nullopt);
  }

  template <class Value>
  std::optional<PropertyList> checked(pugi::xml_node node, const std::optional<Value>& value) {
    if (!value) return failed(node, fmt::format("not the text of a <{}>", node.name()));
    return PropertyList(*value);
  }

  std::optional<PropertyList> array(pugi::xml_node node, int depth) {
    const auto elements = elementsOf(node);
    if (!elements) return std::nullopt;
    PropertyList::Array result;
    result.reserve(elements->size());
    for (const pugi::xml_node element : *elements) {
      std::optional<PropertyList> entry = value(element, depth + 1);
      if (!entry) return std::nullopt;
      result.push_back(*std::move(entry));
    }
    return result;
  }

  std::optional<PropertyList> dictionary(pugi::xml_node node, int depth) {
    const auto elements = elementsOf(node);
    if (!elements) return std::nullopt;
    if (elements->size() % 2 != 0) return failed(node, "a <dict> holds a value for each <key>");
    PropertyList::Dictionary result;
    for (std::size_t i = 0; i < elements->size(); i += 2) {
      const pugi::xml_node name = (*elements)[i];
      if (std::string_view(name.name()) != "key") return failed(name, "expected a <key>");
      const std::optional<std::string> key = textOf(name);
      if (!key) return std::nullopt;
      std::optional<PropertyList> entry = value((*elements)[i + 1], depth + 1);
      if (!entry) return std::nullopt;
      if (!result.emplace(*key, *std::move(entry)).second) {
        return failed(name, fmt::format("the key \"{}\" stands twice", *key));
      }
    }
    return result;
  }

  std::string_view xml_;
  Error* error_;
};

}  // namespace

std::optional<PropertyList> parsePropertyList(std::string_view xml, Error* error) {
  return Parser(xml, error).parse();
}

}  // namespace zenivo
