# Flags shared by every target of the project; none of them is exported to users of the library.
add_library(zorvex_options INTERFACE)
if(PROJECT_IS_TOP_LEVEL)
  target_compile_options(zorvex_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast
    -Wnon-virtual-dtor -Wcast-qual -Wformat=2 -Wimplicit-fallthrough -Wnull-dereference)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # g++ 12 sees null dereferences and overreads inside inlined standard containers at -O2 where there are none.
    target_compile_options(zorvex_options INTERFACE
      -Wno-null-dereference -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread -Wno-restrict)
  endif()
endif()
if(ZORVEX_WERROR)
  target_compile_options(zorvex_options INTERFACE -Werror)
endif()
if(ZORVEX_SANITIZE)
  target_compile_options(zorvex_options INTERFACE
    $<IF:$<BOOL:$<TARGET_PROPERTY:ZORVEX_QUICK_BUILD>>,-O0$<SEMICOLON>-g0,-O1> -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(zorvex_options INTERFACE -fsanitize=address,undefined)
endif()
if(ZORVEX_THREADS)
  target_compile_options(zorvex_options INTERFACE -fsanitize=thread -fno-omit-frame-pointer)
  target_link_options(zorvex_options INTERFACE -fsanitize=thread)
endif()
if(ZORVEX_FUZZ)
  target_compile_options(zorvex_options INTERFACE
    -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  target_link_options(zorvex_options INTERFACE -fsanitize=address,undefined)
endif()
