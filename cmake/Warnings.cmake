# The warnings and defines that every target of the program is built with.
add_library(stemp_options INTERFACE)

target_compile_options(stemp_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Wold-style-cast
  -Woverloaded-virtual -Wcast-qual -Wcast-align -Wformat=2 -Wundef -Wimplicit-fallthrough -Wextra-semi
  -Wsuggest-override -Wdouble-promotion -Wzero-as-null-pointer-constant)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(stemp_options INTERFACE
    -Wduplicated-cond -Wduplicated-branches -Wlogical-op -Wuseless-cast)
  if(NOT STEMP_SANITIZE) # the sanitizers' own checks make it see null where there is none
    target_compile_options(stemp_options INTERFACE -Wnull-dereference)
  endif()
endif()
if(STEMP_WERROR)
  target_compile_options(stemp_options INTERFACE -Werror)
endif()
if(STEMP_SANITIZE)
  target_compile_options(stemp_options INTERFACE -fsanitize=address,undefined -fno-omit-frame-pointer
    -fno-sanitize-recover=undefined)
  target_link_options(stemp_options INTERFACE -fsanitize=address,undefined)
endif()

target_compile_definitions(stemp_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH
  QT_USE_QSTRINGBUILDER QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_DISABLE_DEPRECATED_BEFORE=0x060400)
