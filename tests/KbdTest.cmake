# kbd_test_paths(NAME LAYOUT-DIRECTORY [SWITCHER]) — an object library of paths (src/paths/Paths.h)
# for tests, with the keyboard table and the icons in this directory. Without a SWITCHER it names one
# that is not there: an installed one would work on the tests' servers.
function(kbd_test_paths name layout_directory)
  set(switchers ${layout_directory}/no-switcher ${ARGN})
  list(GET switchers -1 switcher)
  add_library(${name} OBJECT ${PROJECT_SOURCE_DIR}/tests/paths/TestPaths.cpp)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src)
  target_compile_definitions(${name} PRIVATE
    KBD_LAYOUT_DIRECTORY="${layout_directory}/" KBD_SWITCHER_PROGRAM="${switcher}")
  set_target_properties(${name} PROPERTIES AUTOMOC OFF POSITION_INDEPENDENT_CODE ON)
endfunction()

kbd_test_paths(kbd_paths_nowhere ${CMAKE_CURRENT_BINARY_DIR}/nowhere)
kbd_test_paths(kbd_paths_built ${KBD_LAYOUT_DIR})
add_dependencies(kbd_paths_built kbd_icons)

# What every test is started with: keeps the user's locale and settings out, and makes a sanitizer's
# finding a failure.
#
# Without intercept_tls_get_addr the runtime does not guess where the thread-local data of loaded
# libraries begin. With GCC 12 and glibc 2.36 it sometimes guesses wrongly, and then the search for
# leaks ends with "Tracer caught signal 11": in one run of tst_printing in twenty, whose threads have
# all ended by then.
set(no_config ${CMAKE_CURRENT_BINARY_DIR}/no-config)
set(KBD_TEST_ENVIRONMENT
  LC_ALL=C.UTF-8 LANGUAGE= XDG_CONFIG_HOME=${no_config} XDG_CONFIG_DIRS=${no_config}
  ASAN_OPTIONS=detect_leaks=1:abort_on_error=0:intercept_tls_get_addr=0
  LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0
  UBSAN_OPTIONS=print_stacktrace=1)

# kbd_test(NAME LIBRARIES… [PATHS…] [DEFINITIONS…])
#
# A QtTest program NAME from NAME.cpp. Unless PATHS names an object library of paths, nothing is
# installed for it.
function(kbd_test name)
  cmake_parse_arguments(TEST "" "PATHS" "LIBRARIES;DEFINITIONS" ${ARGN})
  if(NOT TEST_PATHS)
    set(TEST_PATHS kbd_paths_nowhere)
  endif()
  add_executable(${name} ${name}.cpp)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE
    ${TEST_LIBRARIES} ${TEST_PATHS} Qt6::Test Qt6::Widgets)
  target_compile_definitions(${name} PRIVATE ${TEST_DEFINITIONS})
  # moc by itself: AUTOMOC takes as long for each test as compiling a small one.
  set_target_properties(${name} PROPERTIES AUTOMOC OFF)
  qt_generate_moc(${name}.cpp ${CMAKE_CURRENT_BINARY_DIR}/moc/${name}.moc TARGET ${name})
  target_sources(${name} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/moc/${name}.moc)
  target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/moc)
  kbd_use_test_headers(${name})
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    TIMEOUT 300 ENVIRONMENT "${KBD_TEST_ENVIRONMENT}")
endfunction()
