# Deleting and moving pages against a second implementation, on random trees.
add_executable(tree_driver tree_driver.cpp)
target_include_directories(tree_driver PRIVATE "${CMAKE_SOURCE_DIR}/src" "${CMAKE_SOURCE_DIR}/tests")
target_link_libraries(tree_driver PRIVATE mrd_flags mrd_pagetree mrd_editor mrd_test_program GTest::gtest)

find_package(Python3 COMPONENTS Interpreter)
if(Python3_FOUND)
  add_test(NAME differential.tree
    COMMAND Python3::Interpreter "${CMAKE_CURRENT_SOURCE_DIR}/tree_compare.py" --driver $<TARGET_FILE:tree_driver> --seeds 3000)
  add_test(NAME differential.tree_commands
    COMMAND Python3::Interpreter "${CMAKE_CURRENT_SOURCE_DIR}/tree_compare.py" --mrd "${MRD_PROGRAM_DIR}/mrd"
      --program-dir "${MRD_PROGRAM_DIR}" --seeds 20)
  set_tests_properties(differential.tree differential.tree_commands PROPERTIES LABELS differential TIMEOUT 600
    ENVIRONMENT PYTHONDONTWRITEBYTECODE=1)
endif()
