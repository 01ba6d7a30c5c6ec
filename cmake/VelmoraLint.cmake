# The linters, for a configuration of their own: `cmake --workflow --preset lint`.
#
# clang-tidy and clazy run along with the compiler over the product's sources; the target `lint`
# runs what looks at the tree as a whole. Any finding is an error.

# velmora_not_judged(<folder>)
#
# What the toolkit's tools generate in that folder is compiled, but clang-tidy says nothing of it.
function(velmora_not_judged folder)
    if(VELMORA_LINT)
        # One check is named because none at all is an error.
        file(WRITE "${folder}/.clang-tidy" "Checks: '-*,misc-definitions-in-headers'\n")
    endif()
endfunction()

if(NOT VELMORA_LINT)
    return()
endif()

find_program(VELMORA_CLANG_TIDY NAMES clang-tidy REQUIRED)
find_program(VELMORA_CPPCHECK NAMES cppcheck REQUIRED)
set(CMAKE_CXX_CLANG_TIDY "${VELMORA_CLANG_TIDY}" --quiet)
# Following every path through the code takes a third of the time: the preset lint-deep does it. It
# looks at each source by itself, because the analyzer passes over what a source includes.
if(NOT VELMORA_LINT_DEEP)
    list(APPEND CMAKE_CXX_CLANG_TIDY "--checks=-clang-analyzer-*")
endif()

# clang-tidy reads the nearest file of this name. Sources that are joined lie in the build folder.
configure_file("${PROJECT_SOURCE_DIR}/.clang-tidy" "${CMAKE_BINARY_DIR}/.clang-tidy" COPYONLY)

# The compiler is clazy's wrapper, which takes its settings from the environment.
#
# function-args-by-value: small aggregates compare themselves by reference, `operator==(T const&)`.
# copyable-polymorphic: the seams have no state and are passed by reference, so none is ever sliced.
# function-args-by-ref: a few words more are copied where that reads better; clang-tidy finds the
#   arguments whose copy costs something.
# ctor-missing-parent-argument: what lives as a member or behind a unique_ptr takes no parent.
set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env
    "CLAZY_CHECKS=level2,no-function-args-by-value,no-function-args-by-ref,no-copyable-polymorphic,no-ctor-missing-parent-argument"
    "CLAZY_IGNORE_DIRS=/usr/include/.*|${CMAKE_BINARY_DIR}/.*")

# cppcheck reads the sources without the toolkit's headers, whose meaning its library files know.
#
# passedByValue: without the headers it takes an enumeration for a large value; clang-tidy knows.
# getsCalled: takes any function of that name for the C library's, which C++20 no longer has.
#
# What it found in a file is kept until the file changes.
file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/cppcheck")
add_custom_target(lint
    COMMAND "${VELMORA_CPPCHECK}" -j 2 "--cppcheck-build-dir=${CMAKE_BINARY_DIR}/cppcheck"
        -I . --std=c++20 --library=qt --library=googletest
        --enable=warning,performance,portability --inline-suppr --error-exitcode=1 --quiet
        --suppress=passedByValue --suppress=getsCalled
        Velmora tests bench
    COMMAND scripts/check-format.sh
    COMMAND scripts/check-scripts.sh
    WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}"
    COMMENT "Looking at the sources as a whole"
    VERBATIM)
