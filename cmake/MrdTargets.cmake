# The house's own vocabulary: what a library, a test and a program are, and the flags that all of them share.

add_library(mrd_flags INTERFACE)
target_compile_features(mrd_flags INTERFACE cxx_std_20)
target_compile_options(mrd_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
if(MRD_WERROR)
  target_compile_options(mrd_flags INTERFACE -Werror)
endif()
if(MRD_SANITIZE)
  target_compile_options(mrd_flags INTERFACE -fsanitize=${MRD_SANITIZE} -fno-omit-frame-pointer)
  # The sanitizers' library loads modules in the program's stead, and heeds no search path of the newer kind but its own.
  target_link_options(mrd_flags INTERFACE -fsanitize=${MRD_SANITIZE} LINKER:--disable-new-dtags)
endif()

# mrd_library(<name> SOURCES .. HEADERS .. [USES <our libraries>] [VENDOR <private imported targets>])
# USES is the list of arrows: a library includes only from what it names there.
function(mrd_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;HEADERS;USES;VENDOR" ${ARGN})
  if(ARG_SOURCES)
    add_library(${name} STATIC ${ARG_SOURCES})
    target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS "${CMAKE_SOURCE_DIR}/src" FILES ${ARG_HEADERS})
    target_link_libraries(${name} PUBLIC ${ARG_USES} PRIVATE mrd_flags ${ARG_VENDOR})
    target_compile_features(${name} PUBLIC cxx_std_20)
  else()
    add_library(${name} INTERFACE)
    target_sources(${name} INTERFACE FILE_SET HEADERS BASE_DIRS "${CMAKE_SOURCE_DIR}/src" FILES ${ARG_HEADERS})
    target_link_libraries(${name} INTERFACE ${ARG_USES})
    target_compile_features(${name} INTERFACE cxx_std_20)
  endif()
endfunction()

# The complete program directory of this build: both programs and the resources.
set(MRD_PROGRAM_DIR "${CMAKE_BINARY_DIR}/mirandel")

# mrd_module(<name> FOR <library> AS <macro> SOURCES .. USES .. VENDOR ..): a part of a library that is loaded along the search path of
# the programs by the first use and not by their start. The library knows its file name by the macro.
function(mrd_module name)
  cmake_parse_arguments(ARG "" "FOR;AS" "SOURCES;USES;VENDOR" ${ARGN})
  add_library(${name} MODULE ${ARG_SOURCES})
  set_target_properties(${ARG_USES} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  target_link_libraries(${name} PRIVATE mrd_flags ${ARG_USES} ${ARG_VENDOR})
  target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/src")
  target_link_options(${name} PRIVATE LINKER:--exclude-libs,ALL)
  if(NOT MRD_SANITIZE) # whose own symbols are in the program
    target_link_options(${name} PRIVATE LINKER:--no-undefined)
  endif()
  set_target_properties(${name} PROPERTIES PREFIX "" INSTALL_RPATH "" LIBRARY_OUTPUT_DIRECTORY "${MRD_PROGRAM_DIR}")
  install(TARGETS ${name} LIBRARY DESTINATION "${MRD_HELPERS_DIR}")
  add_dependencies(${ARG_FOR} ${name})
  target_compile_definitions(${ARG_FOR} PRIVATE ${ARG_AS}="$<TARGET_FILE_NAME:${name}>")
endfunction()

# mrd_test(<name> SOURCES .. USES .. [ENVIRONMENT NAME=VALUE ..] [TIMEOUT seconds]): one GoogleTest program, registered with CTest case by
# case.
function(mrd_test name)
  cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;USES;ENVIRONMENT" ${ARGN})
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 120)
  endif()
  add_executable(${name} ${ARG_SOURCES})
  target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/src" "${CMAKE_SOURCE_DIR}/tests")
  target_link_libraries(${name} PRIVATE mrd_flags ${ARG_USES} GTest::gmock GTest::gtest GTest::gtest_main)
  target_compile_definitions(${name} PRIVATE MRD_TEST_DATA="${CMAKE_SOURCE_DIR}/tests/data"
    MRD_PROGRAM_DIR="${MRD_PROGRAM_DIR}" MRD_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT ${ARG_TIMEOUT})
  # Lists do not survive the way through the call above; CTest reads this file behind the one that names the tests.
  if(ARG_ENVIRONMENT)
    set(file "${CMAKE_CURRENT_BINARY_DIR}/${name}_environment.cmake")
    file(WRITE "${file}" "foreach(test IN LISTS ${name}_TESTS)
  set_tests_properties(\"\${test}\" PROPERTIES ENVIRONMENT \"${ARG_ENVIRONMENT}\")
endforeach()
")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${file}")
  endif()
endfunction()
