# Files that come with the program go into it: tools that are built first make them and write them
# down as source.

function(add_tool name)
  add_executable(${name} ${ARGN})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tools)
  strict_warnings(${name})
endfunction()

add_tool(embed-files tools/embed_files.cpp documents/templatecipher.cpp)
target_link_libraries(embed-files PRIVATE core)

# The function of the room's header that tells the files, which are placed in `folder`.
function(embed_files room header function folder)
  set(embedded ${CMAKE_BINARY_DIR}/embedded_${room}.cpp)
  add_custom_command(OUTPUT ${embedded}
                     COMMAND embed-files ${embedded} ${header} ${function} ${folder} ${ARGN}
                     DEPENDS embed-files ${ARGN}
                     VERBATIM)
  target_sources(${room} PRIVATE ${embedded})
endfunction()

# The document templates, with their pictures.
function(embed_templates)
  file(GLOB templates CONFIGURE_DEPENDS data/templates/*.xml data/templates/*.png)
  embed_files(documents documents/shippedtemplates.h ShippedTemplates "Invoice Templates"
              ${templates})
endfunction()

# The stand-ins for the blank pension forms, drawn from the coordinates at which `pension` prints.
function(embed_blank_forms)
  file(GLOB coordinates CONFIGURE_DEPENDS pension/formcoordinates*.cpp)
  add_tool(make-blank-forms tools/make_blank_forms.cpp ${coordinates})
  target_link_libraries(make-blank-forms PRIVATE pdf)

  set(folder ${CMAKE_BINARY_DIR}/blankforms)
  set(forms "")
  foreach(edition 2024-04 2023-04 2022-10)
    foreach(form A B Solo)
      list(APPEND forms "${folder}/GP ${form} ${edition}.pdf")
    endforeach()
  endforeach()
  file(MAKE_DIRECTORY ${folder})
  add_custom_command(OUTPUT ${forms}
                     COMMAND make-blank-forms ${folder}
                     DEPENDS make-blank-forms
                     VERBATIM)
  embed_files(pension pension/shippedforms.h ShippedForms "Form Templates" ${forms})
endfunction()

# The user guide, with what it leads to and the pictures of both.
function(guide_files result)
  set(texts user-guide.md templates.md file-formats.md)
  set(files ${texts})
  foreach(text ${texts})
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/docs/${text})
    file(READ ${CMAKE_SOURCE_DIR}/docs/${text} words)
    string(REGEX MATCHALL "images/[a-z0-9-]+\\.png" pictures "${words}")
    list(APPEND files ${pictures})
  endforeach()
  list(REMOVE_DUPLICATES files)
  list(TRANSFORM files PREPEND ${CMAKE_SOURCE_DIR}/docs/)
  set(${result} ${files} PARENT_SCOPE)
endfunction()
