# Every target is compiled under the same rules: warnings are errors, and no product-and-sum is fused
# and no sum reordered, so that the same file gives the same digits on every machine.
add_library(velorix_rules INTERFACE)
target_include_directories(velorix_rules INTERFACE ${PROJECT_SOURCE_DIR})
if(MSVC)
  target_compile_options(velorix_rules INTERFACE /W4 /WX /utf-8 /fp:precise)
else()
  target_compile_options(velorix_rules INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                         -Wno-sign-conversion -Werror -ffp-contract=off)
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

# room(<folder> USES <room>...): the library velorix_<room> from the folder's sources, linked only to
# the rooms that it may use.
function(room folder)
  cmake_parse_arguments(ROOM "" "" "USES" ${ARGN})
  get_filename_component(name ${folder} NAME)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
  list(TRANSFORM ROOM_USES PREPEND velorix_)
  if(sources)
    add_library(velorix_${name} STATIC ${sources})
    target_link_libraries(velorix_${name} PUBLIC velorix_rules ${ROOM_USES})
  else()
    add_library(velorix_${name} INTERFACE)
    target_link_libraries(velorix_${name} INTERFACE velorix_rules ${ROOM_USES})
  endif()
endfunction()
