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

# tidemark_tests(<folder> <libraries>...)
# One GoogleTest program per subsystem from tests/<folder>/*_test.cpp, each test
# registered with ctest. Tests find their fixtures under TIDEMARK_TEST_DATA.
function(tidemark_tests folder)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${folder}/*_test.cpp)
  if(NOT sources)
    return()
  endif()
  set(target ${folder}_tests)
  add_executable(${target} ${sources})
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${target} PRIVATE ${ARGN} GTest::gtest GTest::gtest_main)
  target_compile_definitions(${target} PRIVATE
    TIDEMARK_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data"
    TIDEMARK_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  gtest_discover_tests(${target} DISCOVERY_TIMEOUT 60)
endfunction()
