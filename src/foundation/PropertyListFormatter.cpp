#include <fmt/format.h>

#include <cmath>
#include <optional>

#include "foundation/Base64.h"
#include "foundation/PropertyList.h"
#include "foundation/PropertyListDate.h"
#include "foundation/Utf8.h"

namespace zenivo {
namespace {

constexpr std::string_view kHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n";
constexpr std::string_view kFoot = "</plist>\n";

/// pugixml would leave a carriage return as it is, and reading turns it into a
/// line feed; here it goes by its number.
std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    switch (c) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '\r':
        result += "&#13;";
        break;
      default:
        result += c;
    }
  }
  return result;
}

std::string realText(double value) {
  if (std::isinf(value)) return value > 0 ? "+infinity" : "-infinity";
  return std::isnan(value) ? "nan" : fmt::format("{}", value);
}

/// Appends a value, one line an element, `depth` tabs in.
class Writer {
 public:
  explicit Writer(std::string& xml) : xml_(xml) {}

  /// Where a text stands that XML cannot carry; nullopt when all could be written.
  const std::optional<std::string>& refused() const { return refused_; }

  void write(const PropertyList& value) {
    value.visit([this](const auto& content) { append(content); });
  }

 private:
  void append(bool value) { line(value ? "<true/>" : "<false/>"); }
  void append(std::int64_t value) { element("integer", fmt::to_string(value)); }
  void append(double value) { element("real", realText(value)); }
  void append(const std::string& text) { element("string", checked(text)); }
  void append(Date date) { element("date", propertyListDateString(date)); }
  void append(const PropertyList::Data& data) { element("data", base64String(data)); }

  void append(const PropertyList::Array& array) {
    if (array.empty()) return line("<array/>");
    line("<array>");
    ++depth_;
    for (const PropertyList& entry : array) write(entry);
    --depth_;
    line("</array>");
  }

  void append(const PropertyList::Dictionary& dictionary) {
    if (dictionary.empty()) return line("<dict/>");
    line("<dict>");
    ++depth_;
    for (const auto& [key, entry] : dictionary) {
      key_ = key;
      element("key", checked(key));
      write(entry);
    }
    --depth_;
    line("</dict>");
  }

  std::string checked(const std::string& text) {
    if (firstByteNotAllowedInXml(text) != std::string_view::npos && !refused_) refused_ = key_;
    return escaped(text);
  }

  void element(std::string_view name, std::string_view text) {
    line(fmt::format("<{0}>{1}</{0}>", name, text));
  }

  void line(std::string_view text) { xml_.append(depth_, '\t').append(text) += '\n'; }

  std::string& xml_;
  std::size_t depth_ = 0;
  std::string key_;  // of the value that is written
  std::optional<std::string> refused_;
};

}  // namespace

std::optional<std::string> formatPropertyList(const PropertyList& value, Error* error) {
  std::string xml(kHead);
  Writer writer(xml);
  writer.write(value);
  if (!writer.refused()) return xml += kFoot;
  fail(error, {.description = fmt::format(
                   "the text at \"{}\" has a character that XML cannot carry", *writer.refused())});
  return std::nullopt;
}

}  // namespace zenivo
