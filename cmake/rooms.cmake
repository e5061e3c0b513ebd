# One static library a folder. A room links the rooms below it, and so includes only downwards.

function(strict_warnings target)
  if(MSVC)
    target_compile_options(${target} PRIVATE /W4 /utf-8)
  else()
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wconversion)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
      # GCC 12 sees overflows that are not there in joined std::strings (its bug 105651).
      target_compile_options(${target} PRIVATE -Wno-restrict -Wno-array-bounds
                             -Wno-stringop-overflow -Wno-stringop-overread)
    endif()
  endif()
endfunction()

function(add_room name)
  file(GLOB sources CONFIGURE_DEPENDS ${name}/*.cpp ${name}/*.h)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${ARGN})
  target_precompile_headers(${name} PRIVATE <algorithm> <functional> <optional> <string>
                            <string_view> <unordered_map> <vector>)
  strict_warnings(${name})
endfunction()
