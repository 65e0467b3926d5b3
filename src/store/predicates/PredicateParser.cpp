// Predicate::parse: from text to the tree.

#include <algorithm>
#include <cctype>
#include <charconv>
#include <stdexcept>

#include "store/predicates/KeyPath.h"
#include "store/predicates/Predicate.h"

namespace zenivo {
namespace {

bool isWordCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '.' || c == '@';
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(
      a, b, [](unsigned char x, unsigned char y) { return std::toupper(x) == std::toupper(y); });
}

class Parser {
 public:
  Parser(std::string_view text, const std::vector<PredicateArgument>& arguments)
      : text_(text), arguments_(arguments) {}

  PredicateNode parseAll() {
    PredicateNode node = parseDisjunction();
    if (!peek().empty()) refuse("expected AND, OR or the end");
    if (used_ != arguments_.size()) refuse("more arguments than placeholders");
    return node;
  }

 private:
  [[noreturn]] void refuse(const std::string& reason) const {
    throw std::invalid_argument("predicate: " + reason + " at character " +
                                std::to_string(at_ + 1) + " of \"" + std::string(text_) + "\"");
  }

  void skipBlanks() {
    while (at_ < text_.size() && std::isspace(static_cast<unsigned char>(text_[at_])) != 0) ++at_;
  }

  /// The next word, or run of operator characters, or single character.
  std::string_view peek() {
    if (at_ != peekedAt_) {
      skipBlanks();
      peeked_ = scan();
      peekedAt_ = at_;
    }
    return peeked_;
  }

  std::string_view scan() const {
    if (at_ == text_.size()) return {};
    static constexpr std::string_view kOperator = "=!<>&|";
    std::size_t end = at_;
    if (isWordCharacter(text_[at_])) {
      while (end < text_.size() && isWordCharacter(text_[end])) ++end;
    } else if (kOperator.find(text_[at_]) != std::string_view::npos) {
      while (end < text_.size() && kOperator.find(text_[end]) != std::string_view::npos) ++end;
    } else {
      ++end;
    }
    return text_.substr(at_, end - at_);
  }

  bool accept(std::string_view word) {
    const std::string_view next = peek();
    if (next.empty() || !equalIgnoringCase(next, word)) return false;
    at_ += next.size();
    return true;
  }

  void require(std::string_view word) {
    if (!accept(word)) refuse("expected '" + std::string(word) + "'");
  }

  PredicateNode parseDisjunction() {
    return parseJoined(PredicateNode::Kind::disjunction, "OR", "||", &Parser::parseConjunction);
  }

  PredicateNode parseConjunction() {
    return parseJoined(PredicateNode::Kind::conjunction, "AND", "&&", &Parser::parsePrimary);
  }

  PredicateNode parseJoined(PredicateNode::Kind kind, std::string_view word,
                            std::string_view symbol, PredicateNode (Parser::*parsePart)()) {
    PredicateNode first = (this->*parsePart)();
    if (!isNext(word, symbol)) return first;
    PredicateNode node{.kind = kind};
    node.parts.push_back(std::move(first));
    while (accept(word) || accept(symbol)) node.parts.push_back((this->*parsePart)());
    return node;
  }

  bool isNext(std::string_view word, std::string_view symbol) {
    return equalIgnoringCase(peek(), word) || peek() == symbol;
  }

  PredicateNode parsePrimary() {
    if (!accept("(")) return parseComparison();
    if (++depth_ > kMaximumDepth) refuse("too many parentheses");
    PredicateNode node = parseDisjunction();
    --depth_;
    require(")");
    return node;
  }

  PredicateNode parseComparison() {
    PredicateNode node;
    node.any = accept("ANY");
    parseKeyPath(node);
    parseOperator(node);
    parseOperand(node);
    return node;
  }

  void parseKeyPath(PredicateNode& node) {
    const std::string_view word = peek();
    if (word.empty() || std::isalpha(static_cast<unsigned char>(word[0])) == 0) {
      refuse("expected a key");
    }
    at_ += word.size();
    if (equalIgnoringCase(word, "SELF")) return;
    node.keyPath = splitKeyPath(word);
    if (equalIgnoringCase(node.keyPath.front(), "SELF")) {
      node.keyPath.erase(node.keyPath.begin());
    }
    if (equalIgnoringCase(node.keyPath.back(), "@count")) {
      node.counts = true;
      node.keyPath.pop_back();
    }
    if (node.counts && (node.any || node.keyPath.empty())) refuse("nothing to count");
  }

  void parseOperator(PredicateNode& node) {
    struct Spelling {
      std::string_view text;
      PredicateOperator meaning;
    };
    static constexpr Spelling kSpellings[] = {
        {"=", PredicateOperator::equal},
        {"==", PredicateOperator::equal},
        {"!=", PredicateOperator::notEqual},
        {"<>", PredicateOperator::notEqual},
        {"<", PredicateOperator::less},
        {"<=", PredicateOperator::lessOrEqual},
        {">", PredicateOperator::greater},
        {">=", PredicateOperator::greaterOrEqual},
        {"IN", PredicateOperator::in},
        {"BEGINSWITH", PredicateOperator::beginsWith},
        {"CONTAINS", PredicateOperator::contains},
    };
    const auto* found = std::ranges::find_if(
        kSpellings, [&](const Spelling& spelling) { return accept(spelling.text); });
    if (found == std::end(kSpellings)) refuse("expected a comparison");
    node.comparison = found->meaning;
    const bool searches = node.comparison == PredicateOperator::beginsWith ||
                          node.comparison == PredicateOperator::contains;
    if (searches && accept("[")) parseModifiers(node);
  }

  void parseModifiers(PredicateNode& node) {
    for (const char c : peek()) {
      ++at_;
      if (c == 'c') {
        node.ignoresCase = true;
      } else if (c == 'd') {
        node.ignoresMarks = true;
      } else {
        refuse("expected 'c' or 'd'");
      }
    }
    require("]");
  }

  void parseOperand(PredicateNode& node) {
    const std::string_view next = peek();
    if (next == "%") return parsePlaceholder(node);
    if (next == "'" || next == "\"") {
      node.value = parseQuoted(next[0]);
    } else if (accept("NIL") || accept("NULL")) {
      node.value = Value();
    } else if (accept("TRUE") || accept("YES")) {
      node.value = true;
    } else if (accept("FALSE") || accept("NO")) {
      node.value = false;
    } else {
      node.value = parseNumber();
    }
    if (node.comparison == PredicateOperator::in) refuse("IN takes a list");
  }

  std::string parseQuoted(char quote) {
    std::string text;
    for (++at_; at_ < text_.size() && text_[at_] != quote; ++at_) {
      if (text_[at_] == '\\' && at_ + 1 < text_.size()) ++at_;
      text += text_[at_];
    }
    if (at_ == text_.size()) refuse("the quoted text has no end");
    ++at_;
    return text;
  }

  Value parseNumber() {
    const char* start = text_.data() + at_;
    const char* limit = text_.data() + text_.size();
    std::int64_t whole = 0;
    double real = 0;
    const auto asWhole = std::from_chars(start, limit, whole);
    const auto asReal = std::from_chars(start, limit, real);
    if (asReal.ec != std::errc()) refuse("expected a value");
    at_ += static_cast<std::size_t>(asReal.ptr - start);
    const bool isWhole = asWhole.ec == std::errc() && asWhole.ptr == asReal.ptr;
    return isWhole ? Value(whole) : Value(real);
  }

  void parsePlaceholder(PredicateNode& node) {
    ++at_;
    const std::string_view conversion = peek();
    if (conversion.empty() || at_ == text_.size()) refuse("expected a placeholder");
    if (used_ == arguments_.size()) refuse("more placeholders than arguments");
    const PredicateArgument& argument = arguments_[used_++];
    static constexpr std::string_view kNumbers[] = {"d",   "i",   "u",   "ld", "li", "lu",
                                                    "lld", "lli", "llu", "f",  "g",  "lf"};
    if (conversion != "@" && std::ranges::find(kNumbers, conversion) == std::end(kNumbers)) {
      refuse("unknown placeholder");
    }
    const bool takesList = node.comparison == PredicateOperator::in;
    if (conversion != "@" && !argument.value().real()) refuse("the argument is no number");
    if (argument.isList() != takesList) {
      refuse(takesList ? "IN takes a list" : "only IN takes a list");
    }
    at_ += conversion.size();
    if (argument.isList()) {
      node.values = argument.values();
    } else {
      node.value = argument.value();
    }
  }

  static constexpr int kMaximumDepth = 100;

  const std::string_view text_;
  const std::vector<PredicateArgument>& arguments_;
  std::size_t at_ = 0;
  std::size_t peekedAt_ = std::string_view::npos;
  std::string_view peeked_;
  std::size_t used_ = 0;
  int depth_ = 0;
};

}  // namespace

Predicate Predicate::parse(std::string_view format,
                           const std::vector<PredicateArgument>& arguments) {
  return Predicate(Parser(format, arguments).parseAll());
}

Predicate Predicate::andPredicateWithSubpredicates(const std::vector<Predicate>& predicates) {
  PredicateNode node{.kind = PredicateNode::Kind::conjunction};
  for (const Predicate& predicate : predicates) node.parts.push_back(predicate.root());
  return Predicate(std::move(node));
}

}  // namespace zenivo
