# The icons that the keyboard table names, the two key caps of the keycap control, and the window's.
# All are made at build time: flags from the distribution's own, but for those that have changed since
# they were drawn there, and badges from a template.

set(KBD_FLAG_DIR /usr/share/iso-flags-svg/country-4x3 CACHE PATH
  "Country flags: SVG files in the proportions 4:3, named after ISO 3166 codes in lower case")
find_program(KBD_RSVG_CONVERT rsvg-convert DOC "Renders SVG files")

set(KBD_ICON_SOURCE_DIR ${CMAKE_CURRENT_LIST_DIR}/../src/icons)

# That of the flag holder in a picture as wide as a screen of 3840 pixels. Each pixel more is decoded
# at the start and kept.
set(KBD_FLAG_SIZE --width=200 --height=150)
# Three times the small icon size and twice the large one, so that both come out crisp.
set(KBD_OWN_SIZE --width=48 --height=48)

# kbd_icons(SPECS file OUTPUT_DIRECTORY directory)
#
# Makes every icon that the table names, and sets KBD_ICON_FILES to their paths where it is called.
function(kbd_icons)
  cmake_parse_arguments(ICONS "" "SPECS;OUTPUT_DIRECTORY" "" ${ARGN})
  kbd_require_icon_sources()
  kbd_named_icons(${ICONS_SPECS} names)

  file(MAKE_DIRECTORY ${ICONS_OUTPUT_DIRECTORY})
  set(files)
  foreach(name IN LISTS names ITEMS singlekey.png fullkey.png orvix-kbd-display.png)
    kbd_icon_source(${name} source size)
    set(file ${ICONS_OUTPUT_DIRECTORY}/${name})
    add_custom_command(OUTPUT ${file}
      COMMAND ${KBD_RSVG_CONVERT} ${size} --output=${file} ${source}
      DEPENDS ${source}
      COMMENT "Rendering ${name}"
      VERBATIM)
    list(APPEND files ${file})
  endforeach()

  add_custom_target(kbd_icons ALL DEPENDS ${files})
  set(KBD_ICON_FILES ${files} PARENT_SCOPE)
endfunction()

function(kbd_require_icon_sources)
  if(NOT KBD_RSVG_CONVERT)
    message(FATAL_ERROR "rsvg-convert is missing. Install the package librsvg2-bin.")
  endif()
  if(NOT IS_DIRECTORY ${KBD_FLAG_DIR})
    message(FATAL_ERROR
      "No country flags in ${KBD_FLAG_DIR}. Install the package iso-flags-svg, "
      "or set KBD_FLAG_DIR.")
  endif()
endfunction()

# The second column of the table, each name once.
function(kbd_named_icons specs result)
  file(READ ${specs} table)
  string(REGEX MATCHALL "\n[^#\t\n][^\t\n]*\t[^\t\n]*" lines "\n${table}")
  set(names)
  foreach(line IN LISTS lines)
    string(REGEX REPLACE "^.*\t" "" name "${line}")
    list(APPEND names "${name}")
  endforeach()
  list(REMOVE_DUPLICATES names)
  set(${result} ${names} PARENT_SCOPE)
endfunction()

# The SVG file that an icon is rendered from, and the arguments that say how large.
function(kbd_icon_source name source size)
  set(${size} ${KBD_FLAG_SIZE} PARENT_SCOPE)
  if(name MATCHES "^([a-z][a-z])\\.png$")
    set(file ${KBD_ICON_SOURCE_DIR}/flags/${CMAKE_MATCH_1}.svg)
    if(NOT EXISTS ${file})
      set(file ${KBD_FLAG_DIR}/${CMAKE_MATCH_1}.svg)
    endif()
  elseif(name MATCHES "^badge-([a-z][a-z][a-z])\\.png$")
    string(TOUPPER ${CMAKE_MATCH_1} BADGE_LETTERS)
    set(file ${CMAKE_CURRENT_BINARY_DIR}/badges/${CMAKE_MATCH_1}.svg)
    configure_file(${KBD_ICON_SOURCE_DIR}/badge.svg.in ${file} @ONLY)
  elseif(name MATCHES "^(singlekey|fullkey|orvix-kbd-display)\\.png$")
    set(file ${KBD_ICON_SOURCE_DIR}/${CMAKE_MATCH_1}.svg)
    set(${size} ${KBD_OWN_SIZE} PARENT_SCOPE)
  else()
    message(FATAL_ERROR "The keyboard table names \"${name}\", which is no flag and no badge.")
  endif()
  if(NOT EXISTS ${file})
    message(FATAL_ERROR "The keyboard table names the flag \"${name}\", but ${file} is missing.")
  endif()
  set(${source} ${file} PARENT_SCOPE)
endfunction()
