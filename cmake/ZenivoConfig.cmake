# find_package(Zenivo): the target Zenivo::zenivo, and what it links to.
include(${CMAKE_CURRENT_LIST_DIR}/packages.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/ZenivoTargets.cmake)
