#include "app/shell/Url.h"

#include <algorithm>
#include <boost/url/parse.hpp>
#include <boost/url/src.hpp>
#include <boost/url/url_view.hpp>

#include "foundation/Error.h"

namespace zenivo {
namespace {

std::string lowerCase(std::string text) {
  std::ranges::transform(text, text.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; });
  return text;
}

}  // namespace

std::optional<Url> Url::parse(std::string_view text, Error* error) {
  const auto parsed = boost::urls::parse_uri({text.data(), text.size()});
  if (!parsed) {
    fail(error, {.description = parsed.error().message()});
    return std::nullopt;
  }
  Url url;
  url.scheme_ = lowerCase(parsed->scheme());
  url.host_ = lowerCase(parsed->host());
  url.path_ = parsed->path();
  url.hasQuery_ = parsed->has_query() && !parsed->encoded_query().empty();
  // A plus stands for itself: this is no web form.
  constexpr bool kSpaceAsPlus = false;
  for (const auto& parameter : parsed->params(boost::urls::encoding_opts(kSpaceAsPlus))) {
    if (parameter.has_value) url.parameters_.insert_or_assign(parameter.key, parameter.value);
  }
  return url;
}

Url Url::fileUrl(const std::filesystem::path& file) {
  Url url;
  url.scheme_ = "file";
  url.path_ = file.string();
  return url;
}

}  // namespace zenivo
