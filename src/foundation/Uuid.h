// Identifiers that no other object in the world has.

#pragma once

#include <string>

namespace zenivo {

/// A new random UUID (RFC 4122, version 4) in upper case, such as
/// "7A0C1D6E-94F3-4B52-8E1A-5C2F60D9B3A4".  Callable from any thread.
std::string uuidString();

}  // namespace zenivo
