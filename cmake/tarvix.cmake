# Flags and helpers shared by all targets.
add_library(tarvix_flags INTERFACE)
target_compile_options(tarvix_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
    -Woverloaded-virtual -Wno-missing-field-initializers)
target_include_directories(tarvix_flags INTERFACE ${PROJECT_SOURCE_DIR})
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 takes a text put together from a character and a string for a copy onto itself.
    target_compile_options(tarvix_flags INTERFACE -Wno-restrict)
endif()
if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
    # libstdc++ 12 offers std::expected only to compilers that claim these concepts.
    target_compile_options(tarvix_flags INTERFACE -Wno-builtin-macro-redefined
        "SHELL:-U__cpp_concepts -D__cpp_concepts=202002L")
endif()
if(TARVIX_SANITIZE)
    target_compile_options(tarvix_flags INTERFACE -fsanitize=${TARVIX_SANITIZE} -fno-omit-frame-pointer)
    target_link_options(tarvix_flags INTERFACE -fsanitize=${TARVIX_SANITIZE})
endif()
if(TARVIX_FUZZ)
    target_compile_options(tarvix_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

# tarvix_library(NAME [FOLDER folder] DEPENDS lib... [PRIVATE lib...]): all .cpp of one folder (not
# of the folders below it) as the static library tarvix_NAME. A folder without .cpp is header-only.
function(tarvix_library NAME)
    cmake_parse_arguments(ARG "" "FOLDER" "DEPENDS;PRIVATE" ${ARGN})
    if(NOT ARG_FOLDER)
        set(ARG_FOLDER ${NAME})
    endif()
    file(GLOB SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${ARG_FOLDER}/*.cpp)
    set(TARGET tarvix_${NAME})
    if(SOURCES)
        add_library(${TARGET} STATIC ${SOURCES})
        target_link_libraries(${TARGET} PUBLIC tarvix_flags ${ARG_DEPENDS} PRIVATE ${ARG_PRIVATE})
        target_compile_definitions(${TARGET} PRIVATE TARVIX_VERSION="${PROJECT_VERSION}")
    else()
        add_library(${TARGET} INTERFACE)
        target_link_libraries(${TARGET} INTERFACE tarvix_flags ${ARG_DEPENDS} ${ARG_PRIVATE})
    endif()
endfunction()

function(tarvix_program NAME SOURCE)
    cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
    if(NOT EXISTS ${PROJECT_SOURCE_DIR}/${SOURCE})
        return()
    endif()
    add_executable(${NAME} ${SOURCE})
    target_link_libraries(${NAME} PRIVATE ${ARG_DEPENDS})
endfunction()
