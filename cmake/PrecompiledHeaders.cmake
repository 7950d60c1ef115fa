# Headers of Qt and X that most sources include, read once for all of them. A source still includes
# what it uses: CMAKE_DISABLE_PRECOMPILE_HEADERS=ON must compile.
#
# Targets that share a precompiled header are compiled with the same options. So there is one for
# the X room and the switcher, one for the rooms with Qt, one for the harness, and one with QTest in
# it for those that test: gcc compiles QTest's inline functions again for every source, used or not.
set(KBD_WIDELY_INCLUDED
  <QApplication> <QComboBox> <QGraphicsItem> <QGraphicsScene> <QGraphicsView> <QPainter>
  <QProcess> <QRegularExpression> ${PROJECT_SOURCE_DIR}/src/x11/X11.h)

# kbd_precompile_x11(TARGET) — the room that needs no Qt. The switcher uses its header, too.
function(kbd_precompile_x11 target)
  target_precompile_headers(${target} PRIVATE
    <algorithm> <array> <memory> <optional> <string> <vector> ${PROJECT_SOURCE_DIR}/src/x11/X11.h)
endfunction()

# kbd_precompile_rooms(FIRST ROOM…) — the shipped targets that use Qt.
function(kbd_precompile_rooms first)
  target_precompile_headers(${first} PRIVATE ${KBD_WIDELY_INCLUDED})
  foreach(room IN LISTS ARGN)
    target_precompile_headers(${room} REUSE_FROM ${first})
  endforeach()
endfunction()

# kbd_precompile_harness(TARGET) — the harness itself.
function(kbd_precompile_harness harness)
  kbd_test_options(${harness})
  target_precompile_headers(${harness} PRIVATE
    <QCoreApplication> <QDeadlineTimer> <QFile> <QImage> <QProcess> <QRegularExpression>
    <QTemporaryDir> ${PROJECT_SOURCE_DIR}/src/x11/X11.h)
endfunction()

# kbd_use_harness_headers(TARGET) — a library that links the harness and no more of Qt.
function(kbd_use_harness_headers target)
  kbd_test_options(${target})
  target_precompile_headers(${target} REUSE_FROM kbd_harness)
endfunction()

# kbd_precompile_tests(TARGET) — the library whose header the tests share.
function(kbd_precompile_tests target)
  kbd_test_options(${target})
  target_link_libraries(${target} PRIVATE Qt6::Widgets)
  target_precompile_headers(${target} PRIVATE
    ${KBD_WIDELY_INCLUDED} <QFile> <QLabel> <QPushButton> <QSignalSpy> <QTemporaryDir> <QTest>)
endfunction()

# kbd_use_test_headers(TARGET) — a test, or another target that links Qt6::Test and Qt6::Widgets.
function(kbd_use_test_headers target)
  kbd_test_options(${target})
  target_precompile_headers(${target} REUSE_FROM kbd_test_main)
endfunction()

# Tests run once or twice after they have been compiled: optimising them costs more than it gains.
# QTest's names for the directories of a test differ from folder to folder; no test uses them.
function(kbd_test_options target)
  target_compile_options(${target} PRIVATE
    $<$<CONFIG:RelWithDebInfo>:-O0> -UQT_TESTCASE_BUILDDIR -UQT_TESTCASE_SOURCEDIR)
endfunction()
