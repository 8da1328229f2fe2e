# What all targets share: warnings, platform definitions, version resource, the shared run-time of the compiler.

add_library(tavkit_flags INTERFACE)
target_compile_options(tavkit_flags INTERFACE -Wall -Wextra -Wpedantic -Werror)
# GetSafeHwnd() and its like may be asked of a null object; this check knows of no such promise.
target_compile_options(tavkit_flags INTERFACE $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-nonnull>)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 takes the copies inside std::string's own operator+ for overlaps and overflows (its bug 105329).
    target_compile_options(tavkit_flags INTERFACE -Wno-restrict -Wno-stringop-overflow -Wno-array-bounds)
endif()
target_include_directories(tavkit_flags INTERFACE "${PROJECT_SOURCE_DIR}")
if(WIN32)
    # gdwarf-4: the newest format whose line numbers a backtrace under Wine can read
    target_compile_options(tavkit_flags INTERFACE $<$<CONFIG:Debug>:-gdwarf-4>)
    target_compile_definitions(tavkit_flags INTERFACE NOMINMAX $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)
endif()
if(TAVKIT_SANITIZE)
    target_compile_options(tavkit_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(tavkit_flags INTERFACE -fsanitize=address,undefined)
endif()

# The compiler's run-time is shared by all modules, so that exceptions and dynamic_cast cross the DLLs.
function(tavkit_copy_runtime directory)
    set(found "")
    foreach(dll libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
        execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${dll} OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
        if(NOT EXISTS "${path}")
            unset(path)
            find_file(path_${dll} ${dll} PATHS /usr/x86_64-w64-mingw32/lib NO_CMAKE_FIND_ROOT_PATH REQUIRED)
            set(path "${path_${dll}}")
        endif()
        file(COPY "${path}" DESTINATION "${directory}")
        list(APPEND found "${path}")
    endforeach()
    set(TAVKIT_RUNTIME_DLLS "${found}" PARENT_SCOPE)
endfunction()

# Gives a DLL or program its version resource; the version is the project's.
function(tavkit_version_resource target description type)
    set(TAVKIT_RC_DESCRIPTION "${description}")
    set(TAVKIT_RC_FILE "$<TARGET_FILE_NAME:${target}>")
    set(TAVKIT_RC_TYPE "${type}")
    configure_file("${PROJECT_SOURCE_DIR}/cmake/version.rc.in" "${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc.gen" @ONLY)
    file(GENERATE OUTPUT "${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc" INPUT "${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc.gen" TARGET ${target})
    target_sources(${target} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc")
endfunction()

# One module of the house: a DLL whose exports are marked in the source.
function(tavkit_module target)
    cmake_parse_arguments(arg "" "DESCRIPTION;EXPORT_MACRO;PCH" "SOURCES;LINK" ${ARGN})
    add_library(${target} SHARED ${arg_SOURCES})
    add_library(TavKit::${target} ALIAS ${target})
    set_target_properties(${target} PROPERTIES PREFIX "" DEFINE_SYMBOL ${arg_EXPORT_MACRO})
    target_link_libraries(${target} PUBLIC ${arg_LINK} PRIVATE $<BUILD_INTERFACE:tavkit_flags>)
    if(TAVKIT_PCH AND arg_PCH)
        target_precompile_headers(${target} PRIVATE ${arg_PCH})
    endif()
    tavkit_version_resource(${target} "${arg_DESCRIPTION}" 0x2L)
endfunction()
