# vantry_sources(NAME...): adds the sources NAME.cpp of the current directory
# to the library.
function(vantry_sources)
    list(TRANSFORM ARGN PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
    list(TRANSFORM ARGN APPEND ".cpp")
    target_sources(Vantry PRIVATE ${ARGN})
endfunction()

# vantry_program(PATH FOLDER): builds FOLDER/PATH.cpp into build/<preset>/FOLDER.
# The program sees public and protected headers. Sets `target` for the caller.
function(vantry_program path folder)
    string(REPLACE "/" "-" target "${path}")
    add_executable("${target}" "${PROJECT_SOURCE_DIR}/${folder}/${path}.cpp")
    target_include_directories("${target}" PRIVATE "${PROJECT_SOURCE_DIR}/${folder}" "${PROJECT_SOURCE_DIR}/protected")
    set_target_properties("${target}" PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/${folder}")
    return(PROPAGATE target)
endfunction()

# vantry_test(PATH [LIBRARIES LIB...]): builds tests/PATH.cpp as a program of
# its own and runs it as one test. It links what the library exports.
function(vantry_test path)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LIBRARIES")
    vantry_program("${path}" tests)
    target_link_libraries("${target}" PRIVATE Vantry::Vantry GTest::gmock_main ${arg_LIBRARIES})
    add_test(NAME "${path}" COMMAND "${target}")
endfunction()

# vantry_benchmark(PATH [LIBRARIES LIB...]): builds benchmarks/PATH.cpp as a
# Google Benchmark program, which scripts/bench runs. A benchmark that has a
# wanted figure says so by state.SetLabel() in one of these forms, BASE being
# the name of another run of the same program:
#     at most 3 times BASE              time against the time of BASE
#     at least 0.5 of the speed of BASE
#     at most 25 ns                     for one iteration
function(vantry_benchmark path)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LIBRARIES")
    vantry_program("${path}" benchmarks)
    target_link_libraries("${target}" PRIVATE Vantry::Vantry benchmark::benchmark_main ${arg_LIBRARIES})
endfunction()

# vantry_fuzz(NAME [LIBRARIES LIB...]): fuzz/NAME.cpp holds
# LLVMFuzzerTestOneInput; its seeds lie in fuzz/seeds/NAME. It may use what
# tests/support has without GoogleTest. In the fuzz preset
# it becomes a fuzzer, elsewhere it gets a driver of ours. The test
# fuzz/NAME runs it on its seeds either way, so that any compiler does; the
# test fuzz/NAME/damage, labelled "long", has the driver damage them first.
function(vantry_fuzz name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LIBRARIES")
    vantry_program("${name}" fuzz)
    target_include_directories("${name}" PRIVATE "${PROJECT_SOURCE_DIR}/tests")
    target_link_libraries("${name}" PRIVATE Vantry::Vantry ${arg_LIBRARIES})
    set(seeds "${PROJECT_SOURCE_DIR}/fuzz/seeds/${name}")
    if(VANTRY_FUZZ)
        target_link_options("${name}" PRIVATE -fsanitize=fuzzer)
        add_test(NAME "fuzz/${name}" COMMAND "${name}" -runs=0 "${seeds}")
    else()
        target_sources("${name}" PRIVATE "${PROJECT_SOURCE_DIR}/fuzz/SeedDriver.cpp")
        add_test(NAME "fuzz/${name}" COMMAND "${name}" "${seeds}")
        add_test(NAME "fuzz/${name}/damage" COMMAND "${name}" --damage "${seeds}")
        set_tests_properties("fuzz/${name}/damage" PROPERTIES LABELS long)
    endif()
    set_tests_properties("fuzz/${name}" PROPERTIES TIMEOUT 120)
endfunction()
