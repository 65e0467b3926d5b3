# The layers of the system: each folder below src/ with the folders whose
# headers it may include (USES) and the packages whose headers it may include
# (PACKAGES).  Lower layers first; nothing points up.  The targets are made from
# this table, and tests/layers checks every #include against it: none that is
# not allowed here, and nothing allowed here that no file needs.

# The packages: how their headers begin, and what to link.
set(ZENIVO_PACKAGES boost cctz cli11 fmt geographiclib icu json openssl pugixml sqlite)
set(ZENIVO_PACKAGE_boost   boost/       Boost::headers Threads::Threads)
set(ZENIVO_PACKAGE_cctz    cctz/        Zenivo::cctz)
set(ZENIVO_PACKAGE_cli11   CLI/         CLI11::CLI11)
set(ZENIVO_PACKAGE_fmt     fmt/         fmt::fmt)
set(ZENIVO_PACKAGE_geographiclib GeographicLib/ Zenivo::geographiclib)
set(ZENIVO_PACKAGE_icu     unicode/     ICU::uc ICU::i18n)
set(ZENIVO_PACKAGE_json    nlohmann/    nlohmann_json::nlohmann_json)
set(ZENIVO_PACKAGE_openssl openssl/     OpenSSL::Crypto)
set(ZENIVO_PACKAGE_pugixml pugixml.hpp  pugixml::pugixml)
set(ZENIVO_PACKAGE_sqlite  sqlite3.h    SQLite::SQLite3)

set(ZENIVO_LAYERS "")
macro(layer folder)
  cmake_parse_arguments(row "" "" "USES;PACKAGES" ${ARGN})
  list(APPEND ZENIVO_LAYERS ${folder})
  set(ZENIVO_LAYER_${folder} ${row_USES})
  set(ZENIVO_LAYER_PACKAGES_${folder} ${row_PACKAGES})
endmacro()

layer(foundation PACKAGES boost cctz fmt icu openssl pugixml)

layer(time USES foundation PACKAGES fmt)

layer(app/settings USES foundation PACKAGES fmt)

layer(store/model USES foundation PACKAGES fmt openssl)
layer(store/sqlite USES foundation store/model PACKAGES fmt sqlite)
layer(store/predicates USES store/model PACKAGES icu)
layer(store/file USES foundation store/sqlite store/model store/predicates PACKAGES fmt)
layer(store/graph USES foundation store/model store/predicates store/file)

layer(data/stores USES foundation store/model store/file store/graph PACKAGES fmt)

layer(engine USES foundation time PACKAGES fmt)

layer(map/geodesy PACKAGES geographiclib)

layer(place USES foundation engine map/geodesy)

layer(map/layers)
layer(map/lines USES engine map/geodesy place)
layer(ar/orientation USES foundation place)

layer(eclipses USES foundation time app/settings store/graph data/stores engine place)
layer(meteors USES foundation time engine place PACKAGES fmt json)
layer(find USES foundation time app/settings engine place PACKAGES fmt)
layer(calculators/camera USES foundation app/settings PACKAGES fmt)
layer(calculators/models USES foundation app/settings calculators/camera)
layer(calculators USES foundation app/settings calculators/camera calculators/models PACKAGES fmt)
layer(calculators/timer
  USES foundation app/settings calculators/camera calculators/models PACKAGES fmt)
layer(data/pois USES foundation data/stores place)
layer(data/cameras USES foundation data/stores calculators/camera)

layer(planner
  USES foundation time app/settings engine place map/layers map/lines ar/orientation eclipses
    meteors)

layer(input USES foundation place PACKAGES cctz fmt icu)
layer(app/shell
  USES foundation app/settings store/graph data/stores calculators/camera data/cameras
  PACKAGES boost fmt)

layer(answers/common
  USES foundation time app/settings store/model data/stores place calculators/camera calculators
    data/cameras planner input
  PACKAGES fmt json)

layer(answers/sky USES foundation time engine planner input answers/common)
layer(answers/calculators
  USES foundation app/settings calculators/camera calculators/models calculators
    calculators/timer input answers/common
  PACKAGES fmt)

layer(answers/events
  USES foundation time engine place eclipses meteors find input answers/common PACKAGES fmt)

layer(answers/library
  USES foundation app/settings store/file data/stores place calculators/camera data/pois app/shell
    input answers/common
  PACKAGES fmt)

layer(answers/map USES foundation time engine place map/lines answers/common)

layer(commands/common
  USES foundation time place input answers/common
  PACKAGES cctz cli11 fmt)
layer(commands/sky
  USES foundation time engine input answers/sky commands/common PACKAGES fmt)
layer(commands/events
  USES foundation time engine eclipses find input answers/common
    answers/events commands/common
  PACKAGES cli11 fmt)
layer(commands/calculators
  USES calculators/camera input answers/common answers/calculators commands/common
  PACKAGES cli11 fmt)
layer(commands/timer
  USES foundation app/settings calculators/camera calculators/timer input answers/common
    answers/calculators commands/common commands/calculators
  PACKAGES fmt)
layer(commands/library
  USES foundation calculators/camera input answers/common answers/library commands/common
  PACKAGES cli11 fmt)
layer(commands/map
  USES foundation place calculators/camera input answers/map commands/common PACKAGES fmt)
layer(cli
  USES foundation input answers/common commands/common commands/sky commands/events
    commands/calculators commands/timer commands/library commands/map
  PACKAGES cli11 fmt)
