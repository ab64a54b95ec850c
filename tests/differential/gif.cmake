# GIF files against a second implementation, byte for byte, on random pictures.
find_package(Python3 COMPONENTS Interpreter)
if(Python3_FOUND)
  add_test(NAME differential.gif
    COMMAND Python3::Interpreter "${CMAKE_CURRENT_SOURCE_DIR}/gif_compare.py" --mrd "${MRD_PROGRAM_DIR}/mrd" --seeds 60)
  set_tests_properties(differential.gif PROPERTIES LABELS differential TIMEOUT 600 ENVIRONMENT PYTHONDONTWRITEBYTECODE=1)
endif()
