# The stylesheet master, and the layouts of the folder "xml" with the pictures that they bring. Users put their own files beside them.

file(GLOB MRD_LAYOUT_FILES CONFIGURE_DEPENDS RELATIVE "${CMAKE_CURRENT_LIST_DIR}"
  "${CMAKE_CURRENT_LIST_DIR}/xml/*.xml" "${CMAKE_CURRENT_LIST_DIR}/xml/pix/*")

set(mrd_program_files "")
mrd_program_file("${CMAKE_CURRENT_LIST_DIR}/web/mrddefault.css" mrddefault.css)
foreach(name IN LISTS MRD_LAYOUT_FILES)
  mrd_program_file("${CMAKE_CURRENT_LIST_DIR}/${name}" "${name}")
endforeach()

add_custom_target(layout_files ALL DEPENDS ${mrd_program_files})
