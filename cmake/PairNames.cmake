# Makes the translations of the keyboard spec table's names that end in ", 105 keys": that of the name
# before it put into that of "%1, 105 keys". Both stand in the translation of a locale.
#
#   cmake -DSPECS=kbdSpecs.tab -DTRANSLATION=locale.ts -DOUTPUT=pairs.ts -P PairNames.cmake
cmake_minimum_required(VERSION 3.25)

file(READ ${SPECS} table)
file(READ ${TRANSLATION} translation)

string(FIND "${translation}" "<name>CKbdSpecSelector</name>" start)
string(SUBSTRING "${translation}" ${start} -1 selector)
string(FIND "${selector}" "</context>" end)
string(SUBSTRING "${selector}" 0 ${end} selector)

# The selector's text in the locale, in the form of the file.
function(kbd_translated text result)
  set(source "<source>${text}</source>")
  string(FIND "${selector}" "${source}" start)
  set(rest "")
  if(NOT start EQUAL -1)
    string(SUBSTRING "${selector}" ${start} -1 rest)
  endif()
  if(NOT rest MATCHES "^<source>[^<]*</source>[ \n]*<translation>([^<]*)<")
    message(FATAL_ERROR "${TRANSLATION} has no translation of \"${text}\".")
  endif()
  set(${result} "${CMAKE_MATCH_1}" PARENT_SCOPE)
endfunction()

string(REGEX MATCHALL "\n[^#\t\n[][^\t\n[]*, 105 keys" names "\n${table}")
list(REMOVE_DUPLICATES names)
kbd_translated("%1, 105 keys" pattern)
set(messages "")
foreach(name IN LISTS names)
  string(STRIP "${name}" name)
  string(REGEX REPLACE ", 105 keys$" "" base "${name}")
  kbd_translated("${base}" base)
  string(REPLACE "%1" "${base}" full "${pattern}")
  string(APPEND messages
    "<message><source>${name}</source><translation>${full}</translation></message>\n")
endforeach()

file(WRITE ${OUTPUT} "<?xml version=\"1.0\" encoding=\"utf-8\"?>
<!DOCTYPE TS>
<TS version=\"2.1\">
<context><name>CKbdSpecSelector</name>
${messages}</context>
</TS>
")
