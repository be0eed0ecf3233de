# vantry_sources(NAME...): adds the sources NAME.cpp of the current directory
# to the library.
function(vantry_sources)
    list(TRANSFORM ARGN PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
    list(TRANSFORM ARGN APPEND ".cpp")
    target_sources(Vantry PRIVATE ${ARGN})
endfunction()

# vantry_test(PATH [LIBRARIES LIB...]): builds tests/PATH.cpp as a program of
# its own and runs it as one test. It sees public and protected headers and
# links what the library exports.
function(vantry_test path)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LIBRARIES")
    string(REPLACE "/" "-" name "${path}")
    add_executable("${name}" "${PROJECT_SOURCE_DIR}/tests/${path}.cpp")
    target_include_directories("${name}" PRIVATE "${PROJECT_SOURCE_DIR}/tests" "${PROJECT_SOURCE_DIR}/protected")
    target_link_libraries("${name}" PRIVATE Vantry::Vantry GTest::gmock_main ${arg_LIBRARIES})
    set_target_properties("${name}" PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/tests")
    add_test(NAME "${path}" COMMAND "${name}")
endfunction()
