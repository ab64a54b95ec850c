# What generated sites need and what pages of the editor show: scripts, the popup page and small pictures, laid where the
# program looks for them; and the telephone that shows the edition for telephones. The same script and pictures lie a second time below "hilfe", from where a new export directory
# and a run take what the program directory's top does not have.

set(MRD_WEB_FILES mrdnav.js mrdshop.js cookiefunctions.js picturetransfer.js popupbild.htm)
set(MRD_WEB_FILES_OF_HILFE mrdnav.js)
set(MRD_PIX_FILES
  mrdbanner.gif pixel.gif nav_home.gif nav_links.gif nav_rechts.gif nav_oben.gif nav_top.gif lupe.gif karre.gif)
set(MRD_PIX_FILES_OF_HILFE mrdbanner.gif pixel.gif nav_home.gif nav_links.gif nav_rechts.gif nav_oben.gif nav_top.gif)

set(mrd_program_files "")
function(mrd_program_file source target)
  add_custom_command(OUTPUT "${MRD_PROGRAM_DIR}/${target}"
    COMMAND ${CMAKE_COMMAND} -E copy "${source}" "${MRD_PROGRAM_DIR}/${target}"
    DEPENDS "${source}" VERBATIM COMMENT "Copying ${target}")
  set(mrd_program_files ${mrd_program_files} "${MRD_PROGRAM_DIR}/${target}" PARENT_SCOPE)
endfunction()

foreach(name IN LISTS MRD_WEB_FILES)
  mrd_program_file("${CMAKE_CURRENT_LIST_DIR}/web/${name}" "${name}")
endforeach()
mrd_program_file("${CMAKE_CURRENT_LIST_DIR}/imode/viewer.html" imode/viewer.html)
foreach(name IN LISTS MRD_WEB_FILES_OF_HILFE)
  mrd_program_file("${CMAKE_CURRENT_LIST_DIR}/web/${name}" "hilfe/${name}")
endforeach()
foreach(name IN LISTS MRD_PIX_FILES)
  mrd_program_file("${CMAKE_CURRENT_LIST_DIR}/pix/${name}" "${name}")
endforeach()
foreach(name IN LISTS MRD_PIX_FILES_OF_HILFE)
  mrd_program_file("${CMAKE_CURRENT_LIST_DIR}/pix/${name}" "hilfe/pix/${name}")
endforeach()

add_custom_target(program_files ALL DEPENDS ${mrd_program_files})
