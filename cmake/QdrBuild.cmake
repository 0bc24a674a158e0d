# How every target of the kernel is compiled, and how the folders become one shared library.

find_program(QDR_CCACHE ccache)
if(QDR_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Relative paths in the cache, so that another clone finds what this one has compiled.
  set(CMAKE_CXX_COMPILER_LAUNCHER
    env "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}" CCACHE_NOHASHDIR=1 "${QDR_CCACHE}")
endif()

# Flags of our own code: the language, hidden symbols, no contraction of a*b+c into one rounding.
add_library(qdr_options INTERFACE)
target_compile_features(qdr_options INTERFACE cxx_std_20)
target_compile_options(qdr_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow
  # GCC 12 reports overlaps inside std::string that are none (its bug 105651).
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
  -ffp-contract=off -fvisibility=hidden -fvisibility-inlines-hidden
  $<$<BOOL:${QDR_WARNINGS_AS_ERRORS}>:-Werror>)
target_include_directories(qdr_options INTERFACE "$<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}>")
if(QDR_SANITIZE)
  target_compile_options(qdr_options INTERFACE
    -fsanitize=${QDR_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(qdr_options INTERFACE -fsanitize=${QDR_SANITIZE})
endif()
find_program(QDR_LLD ld.lld)
if(QDR_LLD)
  target_link_options(qdr_options INTERFACE -fuse-ld=lld)
endif()
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

define_property(GLOBAL PROPERTY QDR_FOLDERS BRIEF_DOCS "Folders that hold kernel sources")

# One object library per folder, over every source below it. Folders of backends with
# dependencies of their own (platform/qt, platform/pdf) are targets of their own.
function(qdr_add_folder folder)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/${folder}/*.cpp")
  list(FILTER sources EXCLUDE REGEX "/platform/(qt|pdf)/")
  if(NOT sources)
    return()
  endif()
  add_library(qdr_${folder} OBJECT ${sources})
  target_link_libraries(qdr_${folder} PUBLIC qdr_options)
  target_compile_definitions(qdr_${folder} PRIVATE QDR_BUILDING_LIBRARY)
  set_property(GLOBAL APPEND PROPERTY QDR_FOLDERS ${folder})
endfunction()

# libqdr.so from the objects of all folders, and qdr_static, the same objects for tests that
# reach symbols which the shared library does not export.
function(qdr_add_kernel)
  get_property(folders GLOBAL PROPERTY QDR_FOLDERS)
  add_library(qdr_kernel SHARED)
  add_library(qdr_static STATIC)
  if(NOT QDR_SANITIZE)
    # Every symbol is found when the library is linked; the sanitizers bring theirs at run time.
    target_link_options(qdr_kernel PRIVATE -Wl,--no-undefined)
  endif()
  foreach(folder ${folders})
    target_link_libraries(qdr_kernel PRIVATE qdr_${folder})
    target_link_libraries(qdr_static PUBLIC qdr_options PRIVATE qdr_${folder})
  endforeach()
  target_compile_features(qdr_kernel INTERFACE cxx_std_20)
  target_include_directories(qdr_kernel INTERFACE
    "$<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}>"
    "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/qdr>")
  set_target_properties(qdr_kernel PROPERTIES
    OUTPUT_NAME qdr EXPORT_NAME kernel LINKER_LANGUAGE CXX
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
  set_target_properties(qdr_static PROPERTIES LINKER_LANGUAGE CXX)
  add_library(qdr::kernel ALIAS qdr_kernel)
endfunction()

# libqdr-pdf.so: the PDF surface over its library.
function(qdr_add_pdf)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/platform/pdf/*.cpp")
  if(NOT sources)
    return()
  endif()
  include("${CMAKE_SOURCE_DIR}/platform/pdf/pdf.cmake")
endfunction()

# One test program per folder of tests/, over every *_test.cpp below it.
# LIBS names what it links; geometry links its own folder and platform alone.
function(qdr_add_tests folder)
  cmake_parse_arguments(arg "" "" "LIBS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp")
  if(NOT sources)
    return()
  endif()
  add_executable(qdr_${folder}_tests ${sources})
  target_link_libraries(qdr_${folder}_tests PRIVATE qdr_options ${arg_LIBS} GTest::gtest_main)
  target_compile_definitions(qdr_${folder}_tests PRIVATE
    QDR_SOURCE_DIR="${CMAKE_SOURCE_DIR}" QDR_BINARY_DIR="${CMAKE_BINARY_DIR}")
  target_compile_options(qdr_${folder}_tests PRIVATE -Wno-conversion)
  add_test(NAME ${folder} COMMAND qdr_${folder}_tests --gtest_brief=1)
endfunction()

# The message file of the prompts becomes part of the library, for a host whose own is missing.
function(qdr_embed_prompts)
  set(rows "${CMAKE_SOURCE_DIR}/data/prompts/en.msg")
  set(source "${CMAKE_BINARY_DIR}/hostcore/builtin_prompts.cpp")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${rows}")
  file(READ "${rows}" QDR_PROMPT_ROWS)
  configure_file("${CMAKE_SOURCE_DIR}/hostcore/builtin_prompts.cpp.in" "${source}" @ONLY)
  target_sources(qdr_hostcore PRIVATE "${source}")
endfunction()

# Programs look for data in share/qdr beside their own folder, in the build tree as installed.
function(qdr_link_data)
  file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/share")
  file(CREATE_LINK "${CMAKE_SOURCE_DIR}/data" "${CMAKE_BINARY_DIR}/share/qdr" SYMBOLIC)
endfunction()
