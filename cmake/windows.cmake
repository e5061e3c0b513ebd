# What Windows shows of a program in its own windows: icon, version, and the manifest with what the
# program takes charge of itself (UTF-8, screens of any resolution, long paths).
function(windows_resources target description)
  if(NOT WIN32)
    return()
  endif()
  enable_language(RC)
  set(PROGRAM ${target})
  set(DESCRIPTION ${description})
  set(ICON ${CMAKE_SOURCE_DIR}/packaging/windows/ledgerminder.ico)
  set(MANIFEST ${CMAKE_SOURCE_DIR}/packaging/windows/program.manifest)
  configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/program.rc.in
                 ${CMAKE_BINARY_DIR}/${target}.rc @ONLY)
  target_sources(${target} PRIVATE ${CMAKE_BINARY_DIR}/${target}.rc)
endfunction()
