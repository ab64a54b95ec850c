# MRD_HTML5LIB_PYTHON: a Python that has html5lib, or nothing. Debian's own comes first, because another one may lack its packages.
find_program(MRD_HTML5LIB_PYTHON NAMES python3 PATHS /usr/bin NO_DEFAULT_PATH DOC "Python with html5lib, for tests")
find_program(MRD_HTML5LIB_PYTHON NAMES python3)
if(MRD_HTML5LIB_PYTHON)
  execute_process(COMMAND "${MRD_HTML5LIB_PYTHON}" -c "import html5lib, sqlite3"
    RESULT_VARIABLE mrd_without_html5lib OUTPUT_QUIET ERROR_QUIET)
endif()
if(NOT MRD_HTML5LIB_PYTHON OR mrd_without_html5lib)
  set_property(CACHE MRD_HTML5LIB_PYTHON PROPERTY VALUE "MRD_HTML5LIB_PYTHON-NOTFOUND")
endif()
