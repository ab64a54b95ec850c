# The empty project and the language database, made from text by a tool of our own.

include_guard(GLOBAL)

add_library(mrd_database_text STATIC "${CMAKE_SOURCE_DIR}/tools/database_text.cpp")
target_include_directories(mrd_database_text PUBLIC "${CMAKE_SOURCE_DIR}")
target_link_libraries(mrd_database_text PUBLIC mrd_dao PRIVATE mrd_base mrd_flags)

add_executable(make_database "${CMAKE_SOURCE_DIR}/tools/make_database.cpp")
target_link_libraries(make_database PRIVATE mrd_database_text mrd_files mrd_flags)

# mrd_database(<file name> <folder below resources> <schema> [TABLE=rows ..]): a database in the program directory.
function(mrd_database name folder schema)
  set(texts "${CMAKE_SOURCE_DIR}/resources/${folder}/${schema}")
  set(arguments ${texts})
  foreach(rows IN LISTS ARGN)
    string(REGEX REPLACE "^([^=]+)=(.*)$" "\\1" table "${rows}")
    string(REGEX REPLACE "^([^=]+)=(.*)$" "${CMAKE_SOURCE_DIR}/resources/${folder}/\\2" file "${rows}")
    list(APPEND texts "${file}")
    list(APPEND arguments "${table}=${file}")
  endforeach()
  add_custom_command(OUTPUT "${MRD_PROGRAM_DIR}/${name}"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${MRD_PROGRAM_DIR}"
    COMMAND make_database "${MRD_PROGRAM_DIR}/${name}" ${arguments}
    DEPENDS make_database ${texts} VERBATIM COMMENT "Making ${name}")
  install(FILES "${MRD_PROGRAM_DIR}/${name}" DESTINATION "${MRD_RESOURCES_DIR}")
endfunction()

mrd_database(mrdleer.mdb project schema.sql Seite=pages.tsv Einstellungen=settings.tsv)
mrd_database(language.mdb language schema.sql Messages=messages.tsv tbl_Language=captions.tsv)

add_custom_target(mrd_databases ALL DEPENDS "${MRD_PROGRAM_DIR}/mrdleer.mdb" "${MRD_PROGRAM_DIR}/language.mdb")
