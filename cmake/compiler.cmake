# One set of compiler rules for every target.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
set(CMAKE_CXX_FLAGS_DEBUG "-O1 -g")

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

# Contraction into fused multiply-adds would make results depend on the
# machine; the ephemeris promises equal bits for equal inputs on every build.
add_compile_options(-ffp-contract=off -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
if(ZENIVO_WERROR)
  add_compile_options(-Werror)
endif()

if(ZENIVO_SANITIZE)
  # Traces need lines alone, and without the rest of -g the build is a good deal shorter.
  add_compile_options(-g1 -fsanitize=${ZENIVO_SANITIZE} -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  # AddressSanitizer stops at the first two by itself, the third harms no machine that this runs
  # on, and together they make up a third of the build.
  if(ZENIVO_SANITIZE MATCHES "address,undefined")
    add_compile_options(-fno-sanitize=null,object-size,alignment)
  endif()
  add_link_options(-fsanitize=${ZENIVO_SANITIZE})
  # Under instrumentation g++ 12 loses track of which member of a variant is set.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-Wno-maybe-uninitialized)
  endif()
  # Asio's fences are unknown to ThreadSanitizer; the locks around them are not.
  if(ZENIVO_SANITIZE STREQUAL "thread" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-Wno-tsan)
  endif()
endif()
