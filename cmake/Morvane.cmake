include(GoogleTest)

# A folder's part of the core: all its sources but the forms (frm*.cpp) and what stands in qt/,
# which know Qt and belong to morvane_ui. The core links no Qt, so a stray include of it does not
# compile.
function(morvane_core_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
  if(NOT ARG_SOURCES)
    file(GLOB ARG_SOURCES CONFIGURE_DEPENDS *.cpp)
    list(FILTER ARG_SOURCES EXCLUDE REGEX "/frm[^/]*$")
  endif()
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARG_DEPENDS})
endfunction()

# One test program a folder, each of its tests known to CTest by name.
function(morvane_test name)
  cmake_parse_arguments(ARG "" "" "DEPENDS;PROPERTIES" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *.cpp)
  add_executable(${name} ${sources})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} GTest::gmock GTest::gtest_main)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 300 ${ARG_PROPERTIES})
endfunction()
