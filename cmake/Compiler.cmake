# What every target of this project is compiled with.
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

# Linking the tests by the usual linker is a ninth of a build.
option(KBD_FAST_LINK "Link by mold where it is installed" OFF)
find_program(KBD_MOLD mold DOC "A fast linker")
if(KBD_FAST_LINK AND KBD_MOLD)
  add_link_options(-fuse-ld=mold)
endif()

# ccache, where it is installed, keeps what has been compiled before. It must be told not to mind
# the time stamps and macros of a precompiled header.
find_program(KBD_CCACHE ccache DOC "Keeps the results of compilations")
if(KBD_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER
    ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${KBD_CCACHE})
endif()
if(CMAKE_CXX_COMPILER_LAUNCHER MATCHES "ccache")
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    add_compile_options(-fpch-preprocess)
  else()
    add_compile_options("SHELL:-Xclang -fno-pch-timestamp")
  endif()
endif()
