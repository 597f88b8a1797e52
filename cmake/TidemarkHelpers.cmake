# tidemark_library(<folder> [<dependency folders>...])
# One static library per subsystem folder under src/, named tidemark_<folder>.
# Sources are the folder's *.cpp files; headers are included as "<folder>/<name>.h".
# A folder without sources yet adds no target. Every library is recorded in the global
# property TIDEMARK_LIBRARIES, which the benchmark and fuzz programs link.
function(tidemark_library folder)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${folder}/*.cpp)
  if(NOT sources)
    return()
  endif()
  set(target tidemark_${folder})
  set_property(GLOBAL APPEND PROPERTY TIDEMARK_LIBRARIES ${target})
  add_library(${target} STATIC ${sources})
  target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${target} PUBLIC fmt::fmt)
  foreach(dep IN LISTS ARGN)
    target_link_libraries(${target} PUBLIC tidemark_${dep})
  endforeach()
endfunction()

# tidemark_modes(<folder> [<dependency folders>...])
# The mode drivers that live beside a folder's kernels, in src/<folder>/modes/, as the
# library tidemark_<folder>_modes; it links the folder's kernels and the shell. Every
# such library is recorded in the global property TIDEMARK_MODE_LIBRARIES, which the
# programs link.
function(tidemark_modes folder)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${folder}/modes/*.cpp)
  if(NOT sources)
    return()
  endif()
  set(target tidemark_${folder}_modes)
  set_property(GLOBAL APPEND PROPERTY TIDEMARK_MODE_LIBRARIES ${target})
  add_library(${target} STATIC ${sources})
  target_link_libraries(${target} PUBLIC tidemark_${folder} tidemark_shell)
  foreach(dep IN LISTS ARGN)
    target_link_libraries(${target} PUBLIC tidemark_${dep})
  endforeach()
endfunction()

# tidemark_tests(<folder> <libraries>...)
# One GoogleTest program per subsystem from tests/<folder>/*_test.cpp, each test
# registered with ctest. Tests find their fixtures under TIDEMARK_FIXTURES.
# A folder such as "pulse/modes" gives the program pulse_modes_tests.
function(tidemark_tests folder)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${folder}/*_test.cpp)
  if(NOT sources)
    return()
  endif()
  foreach(lib IN LISTS ARGN)
    if(NOT TARGET ${lib})
      return()
    endif()
  endforeach()
  string(REPLACE "/" "_" target ${folder})
  set(target ${target}_tests)
  add_executable(${target} ${sources})
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${target} PRIVATE ${ARGN} GTest::gtest GTest::gtest_main)
  target_compile_definitions(${target} PRIVATE
    TIDEMARK_FIXTURES="${PROJECT_SOURCE_DIR}/tests/fixtures"
    TIDEMARK_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  gtest_discover_tests(${target} DISCOVERY_TIMEOUT 60)
endfunction()
