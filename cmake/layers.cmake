# The layers of the system: each folder below src/ with the folders whose
# headers it may include.  Lower layers first; nothing points up.  The targets
# are made from this table and tests/layers checks every #include against it.

set(ZENIVO_LAYERS
  foundation
  engine
  map/lookups
  map/layers
  planner
  cli/input
  cli
)

set(ZENIVO_LAYER_foundation  "")
set(ZENIVO_LAYER_engine      foundation)
set(ZENIVO_LAYER_map/lookups foundation engine)
set(ZENIVO_LAYER_map/layers  foundation)
set(ZENIVO_LAYER_planner     foundation engine map/lookups map/layers)
set(ZENIVO_LAYER_cli/input   foundation engine)
set(ZENIVO_LAYER_cli         foundation engine map/lookups map/layers planner cli/input)
