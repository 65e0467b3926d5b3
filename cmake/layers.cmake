# The layers of the system: each folder below src/ with the folders whose
# headers it may include.  Lower layers first; nothing points up.  The targets
# are made from this table and tests/layers checks every #include against it.

set(ZENIVO_LAYERS
  foundation
  store/sqlite
  store
  app/settings
  data/stores
  engine
  map/layers
  map/lines
  ar
  eclipses
  meteors
  find
  calculators/camera
  calculators/models
  calculators
  calculators/timer
  data/cameras
  planner
  app/shell
  cli/input
  cli/output
  cli/common
  cli/sky
  cli/events
  cli/calculators
  cli/library
  cli
)

set(ZENIVO_LAYER_foundation   "")
set(ZENIVO_LAYER_store/sqlite "")
set(ZENIVO_LAYER_store        foundation store/sqlite)
set(ZENIVO_LAYER_app/settings foundation)
set(ZENIVO_LAYER_data/stores  foundation store)
set(ZENIVO_LAYER_engine       foundation)
set(ZENIVO_LAYER_map/layers   foundation)
set(ZENIVO_LAYER_map/lines    foundation engine)
set(ZENIVO_LAYER_ar           foundation map/lines)
set(ZENIVO_LAYER_eclipses     foundation store app/settings data/stores engine map/lines)
set(ZENIVO_LAYER_meteors      foundation engine map/lines)
set(ZENIVO_LAYER_find         foundation app/settings engine map/lines)
set(ZENIVO_LAYER_calculators/camera foundation app/settings)
set(ZENIVO_LAYER_calculators/models foundation app/settings calculators/camera)
set(ZENIVO_LAYER_calculators  foundation app/settings calculators/camera calculators/models)
set(ZENIVO_LAYER_calculators/timer
  foundation app/settings calculators/camera calculators/models)
set(ZENIVO_LAYER_data/cameras foundation store data/stores calculators/camera)
set(ZENIVO_LAYER_planner
  foundation app/settings engine map/layers map/lines ar eclipses meteors)
set(ZENIVO_LAYER_app/shell
  foundation app/settings store data/stores calculators/camera data/cameras)
set(ZENIVO_LAYER_cli/input    foundation engine)
set(ZENIVO_LAYER_cli/output   foundation engine)
set(ZENIVO_LAYER_cli/common
  foundation app/settings store data/stores engine calculators/camera calculators data/cameras
  planner cli/input cli/output)
set(ZENIVO_LAYER_cli/sky
  foundation engine map/layers map/lines planner cli/input cli/output cli/common)
set(ZENIVO_LAYER_cli/events
  foundation data/stores engine eclipses meteors find planner cli/input cli/output cli/common)
set(ZENIVO_LAYER_cli/calculators
  foundation app/settings store data/stores calculators/camera calculators/models calculators
  calculators/timer data/cameras cli/input cli/output cli/common)
set(ZENIVO_LAYER_cli/library
  foundation app/settings store data/stores calculators/camera data/cameras app/shell
  cli/input cli/output cli/common)
set(ZENIVO_LAYER_cli
  foundation cli/input cli/output cli/common cli/sky cli/events cli/calculators cli/library)
