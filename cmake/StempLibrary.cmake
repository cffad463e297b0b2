# stemp_library(name SOURCES file… LINK target…): a static library of one folder and layer. Sources are named relative to
# the calling folder; headers are included by their path below src/ ("platform/dao/Database.h").
function(stemp_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARG_LINK} PRIVATE stemp_options)
endfunction()

# How every test runs. The quotes are the sanitizer's own, for a path with blanks.
set(STEMP_TEST_ENVIRONMENT "LSAN_OPTIONS=suppressions='${PROJECT_SOURCE_DIR}/tests/lsan.supp'")
if(MINGW) # as in main.cpp
  list(APPEND STEMP_TEST_ENVIRONMENT QT_ENABLE_REGEXP_JIT=0)
endif()

# stemp_test(name LINK target…): builds <name>.cpp as a Qt Test program and registers it with CTest, on the offscreen
# platform. Further SOURCES may be named.
function(stemp_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${name}.cpp ${ARG_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${ARG_LINK} Qt6::Test stemp_options)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 120
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;${STEMP_TEST_ENVIRONMENT}")
endfunction()
