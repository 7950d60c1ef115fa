# Flags that every target of this project is compiled with.
option(KBD_WERROR "Treat compiler warnings as errors" OFF)
set(KBD_SANITIZE "" CACHE STRING "Sanitizers to build with, comma separated")

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
if(KBD_WERROR)
  add_compile_options(-Werror)
endif()
if(KBD_SANITIZE)
  add_compile_options(-fsanitize=${KBD_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=${KBD_SANITIZE})
endif()
