# The help pages of both languages with their pictures, and the style that they share.

file(GLOB MRD_HELP_FILES CONFIGURE_DEPENDS RELATIVE "${CMAKE_CURRENT_LIST_DIR}/help"
  "${CMAKE_CURRENT_LIST_DIR}/help/hilfe/*.htm" "${CMAKE_CURRENT_LIST_DIR}/help/hilfe/bilder/*.png"
  "${CMAKE_CURRENT_LIST_DIR}/help/help/*.htm" "${CMAKE_CURRENT_LIST_DIR}/help/help/bilder/*.png")

set(mrd_program_files "")
foreach(name IN LISTS MRD_HELP_FILES)
  mrd_program_file("${CMAKE_CURRENT_LIST_DIR}/help/${name}" "${name}")
endforeach()
foreach(folder IN ITEMS hilfe help)
  mrd_program_file("${CMAKE_CURRENT_LIST_DIR}/help/hilfe.css" "${folder}/hilfe.css")
endforeach()

add_custom_target(help_files ALL DEPENDS ${mrd_program_files})
