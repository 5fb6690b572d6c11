# hx_add_translations(<target> <name> SCAN <folders...> TS <files.ts...>)
# Compiles the .ts files with lrelease and embeds the .qm files in <target> under :/i18n, so a program
# ships no translation files; <name> names the generated resource and must differ between the resources
# one program links. The hx_lupdate target refreshes the .ts files from the texts found in the folders.
function(hx_add_translations target name)
  cmake_parse_arguments(ARG "" "" "SCAN;TS" ${ARGN})
  set(dir ${CMAKE_CURRENT_BINARY_DIR}/i18n)
  set_source_files_properties(${ARG_TS} PROPERTIES OUTPUT_LOCATION ${dir})
  qt5_add_translation(qm_files ${ARG_TS})
  set(entries "")
  foreach(qm ${qm_files})
    get_filename_component(qm_name ${qm} NAME)
    string(APPEND entries "    <file>${qm_name}</file>\n")
  endforeach()
  set(qrc ${dir}/${name}.qrc)
  file(WRITE ${qrc}.in "<RCC>\n  <qresource prefix=\"/i18n\">\n${entries}  </qresource>\n</RCC>\n")
  configure_file(${qrc}.in ${qrc} COPYONLY)
  qt5_add_resources(sources ${qrc})
  target_sources(${target} PRIVATE ${sources})

  # New texts are added to every .ts file, texts no longer used are dropped.
  add_custom_target(hx_lupdate_${name}
    COMMAND Qt5::lupdate -locations none -no-obsolete ${ARG_SCAN} -ts ${ARG_TS}
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    COMMENT "Refreshing the translation sources of ${name}"
    VERBATIM)
  if(NOT TARGET hx_lupdate)
    add_custom_target(hx_lupdate)
  endif()
  add_dependencies(hx_lupdate hx_lupdate_${name})
endfunction()
