# zenivo_layer(FOLDER): the library target of src/FOLDER, named zenivo_<folder>,
# linked to the layers and packages that cmake/layers.cmake allows.  A folder of
# headers alone becomes an interface library.  A main.cpp is left to the program
# made from it.
function(zenivo_layer folder)
  string(REPLACE "/" "_" name ${folder})
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${folder}/*.cpp)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  if(sources)
    set(scope PUBLIC)
    add_library(zenivo_${name} STATIC ${sources})
  else()
    set(scope INTERFACE)
    add_library(zenivo_${name} INTERFACE)
  endif()
  target_include_directories(zenivo_${name} ${scope}
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>)
  foreach(package IN LISTS ZENIVO_LAYER_PACKAGES_${folder})
    list(SUBLIST ZENIVO_PACKAGE_${package} 1 -1 libraries)
    target_link_libraries(zenivo_${name} ${scope} ${libraries})
  endforeach()
  foreach(dependency IN LISTS ZENIVO_LAYER_${folder})
    string(REPLACE "/" "_" dependency ${dependency})
    target_link_libraries(zenivo_${name} ${scope} zenivo_${dependency})
  endforeach()
endfunction()

# zenivo_tests(FOLDER [LIBRARIES lib...]): the tests of src/FOLDER, one program.
function(zenivo_tests folder)
  cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "LIBRARIES")
  string(REPLACE "/" "_" name ${folder})
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${folder}/*.cpp)
  add_executable(zenivo_${name}_tests ${sources})
  target_link_libraries(zenivo_${name}_tests PRIVATE
    zenivo_test_support $<TARGET_NAME_IF_EXISTS:zenivo_${name}> ${ARG_LIBRARIES})
  gtest_discover_tests(zenivo_${name}_tests DISCOVERY_MODE PRE_TEST
    TEST_PREFIX ${folder}/ PROPERTIES TIMEOUT 600)
endfunction()

# zenivo_bench(FOLDER [LIBRARIES lib...]): the benchmarks of src/FOLDER.
function(zenivo_bench folder)
  cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "LIBRARIES")
  string(REPLACE "/" "_" name ${folder})
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/bench/${folder}/*.cpp)
  add_executable(zenivo_${name}_bench ${sources})
  target_link_libraries(zenivo_${name}_bench PRIVATE
    $<TARGET_NAME_IF_EXISTS:zenivo_${name}> ${ARG_LIBRARIES} benchmark::benchmark_main)
endfunction()
