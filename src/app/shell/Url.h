// The addresses that are opened from outside.

#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "foundation/Error.h"

namespace zenivo {

/// The scheme that leads into the program.
inline constexpr std::string_view kUrlScheme = "zenivo";

class Url {
 public:
  /// Reads an absolute URL (RFC 3986); nullopt for anything else, and then `error` tells
  /// why.
  static std::optional<Url> parse(std::string_view text, Error* error = nullptr);
  static Url fileUrl(const std::filesystem::path& file);

  bool isFileURL() const { return scheme_ == "file"; }
  /// In lower case.
  const std::string& scheme() const { return scheme_; }
  /// Of a name in lower case; empty where there is none.
  const std::string& host() const { return host_; }
  /// Decoded; of a file URL the file.
  const std::string& path() const { return path_; }
  bool hasQuery() const { return hasQuery_; }

  /// The decoded keys and values of the query; of a key that comes again the last
  /// value, and none of a piece without "=".
  const std::map<std::string, std::string>& parameters() const { return parameters_; }

 private:
  Url() = default;

  std::string scheme_;
  std::string host_;
  std::string path_;
  bool hasQuery_ = false;
  std::map<std::string, std::string> parameters_;
};

}  // namespace zenivo
