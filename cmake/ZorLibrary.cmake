include(GenerateExportHeader)

set(ZOR_INSTALL_INCLUDEDIR "${CMAKE_INSTALL_INCLUDEDIR}/zor")
# What may leave a shared library; a folder whose names follow another pattern sets its own.
set(ZOR_EXPORT_MAP "${CMAKE_CURRENT_LIST_DIR}/exports.map")

# zor_add_library(<target> ALIAS <installed name> [SOURCES <file>...] HEADERS <file>...
#                 [BASE_DIR <dir>] [PUBLIC_LIBS <lib>...] [PRIVATE_LIBS <lib>...])
#
# Compiles the sources once, as the object library <target>_objects (linked by tests that reach what
# is not exported; folders may add sources to it), and links the shared library <target> from it:
# Zor::<installed name>, hidden visibility, export header <lower-case target>_export.h. Headers keep
# their path below BASE_DIR (default: the current folder) when installed.
function(zor_add_library target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "ALIAS;BASE_DIR" "SOURCES;HEADERS;PUBLIC_LIBS;PRIVATE_LIBS")
  if(arg_UNPARSED_ARGUMENTS OR NOT arg_ALIAS OR NOT arg_HEADERS)
    message(FATAL_ERROR "zor_add_library(${target}): ALIAS and HEADERS are needed, "
                        "not understood: '${arg_UNPARSED_ARGUMENTS}'")
  endif()
  set(base_dir "${CMAKE_CURRENT_SOURCE_DIR}")
  if(arg_BASE_DIR)
    cmake_path(ABSOLUTE_PATH arg_BASE_DIR NORMALIZE OUTPUT_VARIABLE base_dir)
  endif()
  string(TOLOWER "${target}_export.h" export_header)
  set(export_dir "${CMAKE_CURRENT_BINARY_DIR}/export")
  set(objects ${target}_objects)

  add_library(${objects} OBJECT ${arg_SOURCES})
  set_target_properties(
    ${objects} PROPERTIES POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden
                          VISIBILITY_INLINES_HIDDEN ON)
  target_compile_definitions(${objects} PRIVATE ${target}_EXPORTS)
  target_compile_options(${objects} PRIVATE -fno-semantic-interposition)
  target_include_directories(${objects} PUBLIC "${base_dir}" "${export_dir}")
  target_link_libraries(
    ${objects}
    PUBLIC ${arg_PUBLIC_LIBS}
    PRIVATE ${arg_PRIVATE_LIBS} zor_flags)

  add_library(${target} SHARED)
  add_library(Zor::${arg_ALIAS} ALIAS ${target})
  generate_export_header(${target} EXPORT_FILE_NAME "${export_dir}/${export_header}")
  set_target_properties(
    ${target}
    PROPERTIES EXPORT_NAME ${arg_ALIAS}
               VERSION ${PROJECT_VERSION}
               SOVERSION ${PROJECT_VERSION_MAJOR}
               LINKER_LANGUAGE CXX
               INSTALL_RPATH "$ORIGIN"
               LINK_DEPENDS "${ZOR_EXPORT_MAP}")
  target_compile_features(${target} INTERFACE cxx_std_17)
  target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS "${base_dir}" "${export_dir}"
                                  FILES ${arg_HEADERS} "${export_dir}/${export_header}")
  target_link_libraries(
    ${target}
    PUBLIC ${arg_PUBLIC_LIBS}
    PRIVATE $<BUILD_INTERFACE:${objects}> $<BUILD_INTERFACE:zor_flags>)
  target_link_options(
    ${target}
    PRIVATE
    -Wl,--as-needed
    -Wl,-Bsymbolic-functions
    -Wl,--version-script=${ZOR_EXPORT_MAP})
  if(NOT ZOR_SANITIZE)  # the sanitizers' run-time is resolved in the program
    target_link_options(${target} PRIVATE -Wl,-z,defs)
  endif()
  if(ZOR_LTO)
    # Fat objects: the tests and benchmarks link the same objects the plain way, without optimising
    # the whole library anew for each program.
    target_compile_options(${objects} PRIVATE -flto=auto -ffat-lto-objects)
    target_link_options(${target} PRIVATE -flto=auto)
  endif()

  install(
    TARGETS ${target}
    EXPORT ZorGeometryMeasureTargets
    FILE_SET HEADERS DESTINATION "${ZOR_INSTALL_INCLUDEDIR}"
    INCLUDES DESTINATION "${ZOR_INSTALL_INCLUDEDIR}")
endfunction()
