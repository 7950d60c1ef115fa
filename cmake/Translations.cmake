# The program's own translations: translations/orvix-keyboard-layout_<locale>.ts.
#
# After a text of the program or a name in kbdSpecs.tab has changed:
#
#   cmake --build build/dev --target update_translations
#
# adds what is new to each file as unfinished and marks what has gone as vanished. Translate the
# ones and remove the others; tst_translations tells when something is missing. The names that end in
# ", 105 keys" are put together at build time.

find_package(Qt6 6.4 REQUIRED COMPONENTS LinguistTools)

set(KBD_LOCALES de_DE es_ES fr_FR ja_JP zh_CN)
set(KBD_TRANSLATED_DIRS ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/platform)

# The directories are laid out as installed, so that the program finds them from where it was built.
set(spec_table ${PROJECT_SOURCE_DIR}/src/kbdSpecs.tab)
set(ts_files)
set(qm_files)
foreach(locale IN LISTS KBD_LOCALES)
  set(ts ${PROJECT_SOURCE_DIR}/translations/orvix-keyboard-layout_${locale}.ts)
  set(pairs ${CMAKE_BINARY_DIR}/translations/pairs_${locale}.ts)
  set(directory ${CMAKE_BINARY_DIR}/share/orvix-i18n/${locale})
  set(qm ${directory}/orvix-keyboard-layout_${locale}.qm)
  add_custom_command(OUTPUT ${qm}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${directory}
    COMMAND ${CMAKE_COMMAND} -DSPECS=${spec_table} -DTRANSLATION=${ts} -DOUTPUT=${pairs}
      -P ${PROJECT_SOURCE_DIR}/cmake/PairNames.cmake
    COMMAND Qt6::lrelease -silent ${ts} ${pairs} -qm ${qm}
    DEPENDS ${ts} ${spec_table} ${PROJECT_SOURCE_DIR}/cmake/PairNames.cmake
    COMMENT "Translation ${locale}"
    VERBATIM)
  install(FILES ${qm} DESTINATION ${CMAKE_INSTALL_DATADIR}/orvix-i18n/${locale} COMPONENT display)
  list(APPEND ts_files ${ts})
  list(APPEND qm_files ${qm})
endforeach()
add_custom_target(kbd_translations ALL DEPENDS ${qm_files})

set(spec_names ${CMAKE_BINARY_DIR}/translations/SpecNames.cpp)
add_custom_target(update_translations
  COMMAND ${CMAKE_COMMAND}
    -DSPECS=${spec_table} -DOUTPUT=${spec_names}
    -P ${PROJECT_SOURCE_DIR}/cmake/SpecNames.cmake
  COMMAND Qt6::lupdate -locations none -source-language en
    -extensions cpp,h,inc ${KBD_TRANSLATED_DIRS} ${spec_names} -ts ${ts_files}
  VERBATIM)
