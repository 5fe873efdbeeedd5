# morvane_embed_configuration(TARGET FORM RESOURCE PREFIX ALIAS): writes a configuration from the table of default
# bindings and embeds it into TARGET as the Qt resource PREFIX/ALIAS. FORM is "default" (the plug-in's embedded default)
# or "starter" (a file as the plug-in saves it). The library names it with Q_INIT_RESOURCE(RESOURCE).
set(MORVANE_BINDINGS "${CMAKE_SOURCE_DIR}/plugin/resources/DefaultBindings.txt")

function(morvane_embed_configuration target form resource prefix alias)
  set(file "${CMAKE_CURRENT_BINARY_DIR}/${resource}.cfg")
  add_custom_command(OUTPUT "${file}"
    COMMAND mrv_make_configuration ${form} "${MORVANE_BINDINGS}" "${file}"
    DEPENDS mrv_make_configuration "${MORVANE_BINDINGS}"
    COMMENT "Writing the ${form} configuration" VERBATIM)
  set(qrc "${CMAKE_CURRENT_BINARY_DIR}/${resource}.qrc")
  file(CONFIGURE OUTPUT "${qrc}" CONTENT
    "<RCC><qresource prefix=\"${prefix}\"><file alias=\"${alias}\">${resource}.cfg</file></qresource></RCC>\n")
  set(source "${CMAKE_CURRENT_BINARY_DIR}/qrc_${resource}.cpp")
  add_custom_command(OUTPUT "${source}"
    COMMAND Qt6::rcc --no-compress --name ${resource} --output "${source}" "${qrc}"
    DEPENDS "${file}" "${qrc}" VERBATIM)
  set_source_files_properties("${source}" PROPERTIES SKIP_AUTOGEN ON SKIP_PRECOMPILE_HEADERS ON)
  target_sources(${target} PRIVATE "${source}")
endfunction()
