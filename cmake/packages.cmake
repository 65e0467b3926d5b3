# The packages that the library links to, found for the build and for whoever uses it installed.

find_package(Boost 1.81 REQUIRED)
find_package(CLI11 REQUIRED)
find_package(fmt REQUIRED)
find_package(ICU REQUIRED COMPONENTS uc i18n)
find_package(nlohmann_json REQUIRED)
# The few digests that are needed, and not the third of a start that loading the rest takes.
set(OPENSSL_USE_STATIC_LIBS ON)
find_package(OpenSSL REQUIRED COMPONENTS Crypto)
find_package(pugixml REQUIRED)
find_package(SQLite3 REQUIRED)
find_package(Threads REQUIRED)
find_library(CCTZ_LIBRARY cctz REQUIRED)  # whose package brings no configuration
add_library(Zenivo::cctz INTERFACE IMPORTED)
target_link_libraries(Zenivo::cctz INTERFACE ${CCTZ_LIBRARY})

find_library(GEOGRAPHICLIB_LIBRARY NAMES GeographicLib Geographic REQUIRED)  # nor does this
add_library(Zenivo::geographiclib INTERFACE IMPORTED)
target_link_libraries(Zenivo::geographiclib INTERFACE ${GEOGRAPHICLIB_LIBRARY})
