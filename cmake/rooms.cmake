# Every target is compiled under the same rules: no product-and-sum is fused and no sum reordered, so that sums and
# products have the same bits on every machine. Warnings are errors for us alone: a newer compiler must not stop a packager.
add_library(velorix_rules INTERFACE)
target_include_directories(velorix_rules INTERFACE ${PROJECT_SOURCE_DIR})
if(MSVC)
  target_compile_options(velorix_rules INTERFACE /W4 $<$<BOOL:${VELORIX_WERROR}>:/WX> /utf-8 /fp:precise)
else()
  target_compile_options(velorix_rules INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                         -Wno-sign-conversion $<$<BOOL:${VELORIX_WERROR}>:-Werror> -ffp-contract=off)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # This version sees overlaps in std::string that aren't there (its bug 105651).
  target_compile_options(velorix_rules INTERFACE -Wno-restrict)
endif()
if(VELORIX_SANITIZE)
  target_compile_options(velorix_rules INTERFACE -fsanitize=${VELORIX_SANITIZE}
                         -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(velorix_rules INTERFACE -fsanitize=${VELORIX_SANITIZE})
endif()

# share_headers(<target> <first> <header>...): the target is compiled behind one precompiled header, which the target
# <first> makes and all others with the same flags use. Sources include what they use all the same: tools/check-headers
# and -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON do without.
function(share_headers target first)
  if(CMAKE_DISABLE_PRECOMPILE_HEADERS)
    return()
  endif()
  if(target STREQUAL first)
    list(TRANSFORM ARGN REPLACE "(.+)" "<\\1>")
    target_precompile_headers(${target} PRIVATE ${ARGN})
  else()
    target_precompile_headers(${target} REUSE_FROM ${first})
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # Behind a precompiled header this version sees more in std::string that isn't there.
    target_compile_options(${target} PRIVATE -Wno-stringop-overflow -Wno-stringop-overread -Wno-array-bounds)
  endif()
endfunction()
set(STANDARD_HEADERS algorithm array cmath cstdint filesystem functional optional span string vector)

# room(<folder> USES <room>... EXCEPT <file>...): the library velorix_<folder> from the folder's own sources but those
# excepted, linked only to the rooms that it may use. A room that holds rooms names them among what it uses; a room that may
# use it may use these as well. tools/check-layers reads the same lines.
function(room folder)
  cmake_parse_arguments(ROOM "" "" "USES;EXCEPT" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
  foreach(file ${ROOM_EXCEPT})
    list(REMOVE_ITEM sources ${PROJECT_SOURCE_DIR}/${folder}/${file})
  endforeach()
  string(REPLACE "/" "_" name velorix_${folder})
  list(TRANSFORM ROOM_USES PREPEND velorix_)
  list(TRANSFORM ROOM_USES REPLACE "/" "_")
  if(sources)
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC velorix_rules ${ROOM_USES})
  else()
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE velorix_rules ${ROOM_USES})
  endif()
endfunction()
