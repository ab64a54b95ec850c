# The user's handbook as pages of the help: each chapter below docs/handbook becomes a page with the ways to its neighbours.
# Its pictures and its style are those of the help pages, one folder above.

set(MRD_HANDBOOK "${CMAKE_SOURCE_DIR}/docs/handbook")
set(MRD_HANDBOOK_PAGE "${CMAKE_CURRENT_LIST_DIR}/handbook_page.cmake")
file(STRINGS "${MRD_HANDBOOK}/chapters.txt" MRD_CHAPTERS)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${MRD_HANDBOOK}/chapters.txt")

set(mrd_program_files "")
function(mrd_handbook language folder)
  list(TRANSFORM MRD_CHAPTERS REPLACE "(.+)" "${MRD_HANDBOOK}/${language}/\\1.htm" OUTPUT_VARIABLE sources)
  foreach(name IN ITEMS index LISTS MRD_CHAPTERS)
    set(page "${MRD_PROGRAM_DIR}/${folder}/${name}.htm")
    # A page shows the titles of others.
    add_custom_command(OUTPUT "${page}"
      COMMAND ${CMAKE_COMMAND} -D "HANDBOOK=${MRD_HANDBOOK}" -D "LANGUAGE=${language}" -D "NAME=${name}" -D "PAGE=${page}"
        -P "${MRD_HANDBOOK_PAGE}"
      DEPENDS "${MRD_HANDBOOK_PAGE}" "${MRD_HANDBOOK}/chapters.txt" "${MRD_HANDBOOK}/${language}/index.htm" ${sources}
      VERBATIM COMMENT "Making ${folder}/${name}.htm")
    install(FILES "${page}" DESTINATION "${MRD_RESOURCES_DIR}/${folder}")
    list(APPEND mrd_program_files "${page}")
  endforeach()
  set(mrd_program_files ${mrd_program_files} PARENT_SCOPE)
endfunction()
mrd_handbook(de hilfe/handbuch)
mrd_handbook(en help/handbook)

add_custom_target(handbook_files ALL DEPENDS ${mrd_program_files})
add_dependencies(help_files handbook_files)
