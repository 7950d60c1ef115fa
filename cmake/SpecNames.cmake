# Makes a source file of the names in the keyboard spec table that the selector translates, for
# lupdate to read: the program looks them up at run time only. Names that end in ", 105 keys" are
# translated as one text, see PairNames.cmake.
#
#   cmake -DSPECS=kbdSpecs.tab -DOUTPUT=SpecNames.cpp -P SpecNames.cmake

file(READ ${SPECS} table)
# Of each line, what stands before the native name in brackets.
string(REGEX MATCHALL "\n[^#\t\n[][^\t\n[]*" names "\n${table}")

set(rows)
foreach(name IN LISTS names)
  string(STRIP "${name}" name)
  string(REGEX REPLACE ".*(, 105 keys)$" "%1\\1" name "${name}")
  string(REGEX REPLACE "([\\\\\"])" "\\\\\\1" name "${name}")
  list(APPEND rows "    QT_TRANSLATE_NOOP(\"CKbdSpecSelector\", \"${name}\"),\n")
endforeach()
list(REMOVE_DUPLICATES rows)

list(JOIN rows "" rows)
file(WRITE ${OUTPUT} "static const char* const names[] = {\n${rows}};\n")
