# kbd_test(NAME LIBRARIES… [DEFINITIONS…] [ENVIRONMENT…])
#
# A QtTest program NAME from NAME.cpp. Its environment keeps the user's locale and settings out,
# and makes a sanitizer's finding a failure.
function(kbd_test name)
  cmake_parse_arguments(TEST "" "" "LIBRARIES;DEFINITIONS;ENVIRONMENT" ${ARGN})
  add_executable(${name} ${name}.cpp)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE ${TEST_LIBRARIES} Qt6::Test Qt6::Widgets)
  target_compile_definitions(${name} PRIVATE ${TEST_DEFINITIONS})
  kbd_use_harness_headers(${name})
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    TIMEOUT 300
    ENVIRONMENT "LC_ALL=C.UTF-8;LANGUAGE=;XDG_CONFIG_HOME=${CMAKE_CURRENT_BINARY_DIR}/no-config;XDG_CONFIG_DIRS=${CMAKE_CURRENT_BINARY_DIR}/no-config;ASAN_OPTIONS=detect_leaks=1:abort_on_error=0;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0;UBSAN_OPTIONS=print_stacktrace=1;${TEST_ENVIRONMENT}"
  )
endfunction()
