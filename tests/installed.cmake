# cmake -D BUILD=<build> -D EXAMPLE=<sources> -D FOLDER=<to be made> -P installed.cmake
# Installs the build, builds the example against it, and runs it and the installed program.

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE code OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(code)
    message(FATAL_ERROR "${ARGN}:\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${FOLDER})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${FOLDER}/tree)
run(${CMAKE_COMMAND} -G Ninja -S ${EXAMPLE} -B ${FOLDER}/example -D CMAKE_PREFIX_PATH=${FOLDER}/tree)
run(${CMAKE_COMMAND} --build ${FOLDER}/example)
run(${FOLDER}/example/sunrise 48.8566 2.3522 61212)
message("${output}")
run(${CMAKE_COMMAND} -E env ZENIVO_HOME=${FOLDER}/home ${FOLDER}/tree/bin/zenivo cameras d850)
if(NOT output MATCHES "Nikon D850")
  message(FATAL_ERROR "the installed program finds no camera: ${output}")
endif()
file(REMOVE_RECURSE ${FOLDER})
