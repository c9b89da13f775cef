# Flags and helpers shared by all targets.
add_library(tarvix_flags INTERFACE)
target_compile_options(tarvix_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
    -Woverloaded-virtual -Wno-missing-field-initializers $<$<BOOL:${TARVIX_WARNINGS_AS_ERRORS}>:-Werror>)
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

# Builds for shipping and for checks read several sources as one (CMAKE_UNITY_BUILD in the presets), which halves their
# time. cmake/apart.txt names what doesn't go together with its neighbours: two helpers of one name.
file(STRINGS ${PROJECT_SOURCE_DIR}/cmake/apart.txt TARVIX_APART REGEX "^[^#]")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/apart.txt)
list(TRANSFORM TARVIX_APART PREPEND ${PROJECT_SOURCE_DIR}/)
function(tarvix_keep_apart) # tarvix_keep_apart(SOURCES...), of one target, as absolute paths
    foreach(SOURCE ${ARGN})
        if(SOURCE IN_LIST TARVIX_APART)
            set_source_files_properties(${SOURCE} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
        endif()
    endforeach()
endfunction()

# tarvix_library(NAME [FOLDERS folder...] [FILES file...] DEPENDS lib... [PRIVATE lib...]): all .cpp of those
# folders (not of the folders below them), or those files, as the static library tarvix_NAME. Without
# either it is the folder NAME.
function(tarvix_library NAME)
    cmake_parse_arguments(ARG "" "" "FOLDERS;FILES;DEPENDS;PRIVATE" ${ARGN})
    if(NOT ARG_FOLDERS AND NOT ARG_FILES)
        set(ARG_FOLDERS ${NAME})
    endif()
    list(TRANSFORM ARG_FOLDERS REPLACE "(.+)" "${PROJECT_SOURCE_DIR}/\\1/*.cpp" OUTPUT_VARIABLE PATTERNS)
    set(SOURCES)
    foreach(PATTERN ${PATTERNS})
        file(GLOB FOUND CONFIGURE_DEPENDS ${PATTERN})
        if(NOT FOUND)
            message(FATAL_ERROR "tarvix_${NAME}: ${PATTERN} names no source")
        endif()
        list(APPEND SOURCES ${FOUND})
    endforeach()
    tarvix_keep_apart(${SOURCES})
    set(TARGET tarvix_${NAME})
    add_library(${TARGET} STATIC ${SOURCES} ${ARG_FILES})
    target_link_libraries(${TARGET} PUBLIC tarvix_flags ${ARG_DEPENDS} PRIVATE ${ARG_PRIVATE})
endfunction()

# tarvix_program(NAME SOURCE DEPENDS lib...)
function(tarvix_program NAME SOURCE)
    cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
    add_executable(${NAME} ${SOURCE})
    target_link_libraries(${NAME} PRIVATE ${ARG_DEPENDS})
endfunction()
