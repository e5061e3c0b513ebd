# The document templates under data/templates go into the program, enciphered by a tool that is built
# first.

function(embed_templates room)
  add_executable(embed-templates tools/embed_templates.cpp documents/templatecipher.cpp)
  target_link_libraries(embed-templates PRIVATE core)
  set_target_properties(embed-templates PROPERTIES RUNTIME_OUTPUT_DIRECTORY
                        ${CMAKE_BINARY_DIR}/tools)
  strict_warnings(embed-templates)

  file(GLOB templates CONFIGURE_DEPENDS data/templates/*.xml data/templates/*.png)
  set(embedded ${CMAKE_BINARY_DIR}/shippedtemplates_data.cpp)
  add_custom_command(OUTPUT ${embedded}
                     COMMAND embed-templates ${embedded} ${templates}
                     DEPENDS embed-templates ${templates}
                     VERBATIM)
  target_sources(${room} PRIVATE ${embedded})
endfunction()
