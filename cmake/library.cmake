# The library target polyarc (alias polyarc::polyarc): shared or static
# after BUILD_SHARED_LIBS, both made from one set of objects compiled with
# hidden visibility, so that only the functions declared POLYARC_EXTERN
# are visible to a program that links it.

file(GLOB_RECURSE POLYARC_SOURCES CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/platform/*.cpp
  ${PROJECT_SOURCE_DIR}/store/*.cpp
  ${PROJECT_SOURCE_DIR}/geom/*.cpp
  ${PROJECT_SOURCE_DIR}/contour/*.cpp
  ${PROJECT_SOURCE_DIR}/boolean/*.cpp
  ${PROJECT_SOURCE_DIR}/offset/*.cpp
  ${PROJECT_SOURCE_DIR}/lineoffset/*.cpp)

add_library(polyarc_objects OBJECT ${POLYARC_SOURCES})
target_include_directories(polyarc_objects
  PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
  PRIVATE ${PROJECT_SOURCE_DIR})
target_compile_definitions(polyarc_objects PRIVATE POLYARC_BUILDING)
# Calls between the library's own exported functions need not go through
# the PLT; nothing outside may interpose them.
target_compile_options(polyarc_objects PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-semantic-interposition>)
# Inline variables of the standard library would otherwise be "unique"
# global symbols, which objcopy cannot make local in the static archive;
# as weak symbols they can be, and nothing here relies on their identity.
target_compile_options(polyarc_objects PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
set_target_properties(polyarc_objects PROPERTIES
  CXX_VISIBILITY_PRESET hidden
  VISIBILITY_INLINES_HIDDEN ON
  POSITION_INDEPENDENT_CODE ON)

# A static archive whose only global names are the public functions. An
# archive of the objects as they are would hand a program every internal
# function of namespace polyarc as a global symbol (hidden visibility only
# matters to a shared library), free to clash with the program's own. So
# the objects are first linked into one relocatable object (ld -r), in
# which the calls between them are resolved, and the hidden symbols are
# then made local (objcopy --localize-hidden), and so are the template
# instances that the standard library marks visible (only the flat
# interface's prefixes keep global names).
set(POLYARC_PUBLIC_PATTERNS)
foreach(prefix Li Ge Fl Ln Mem Debug Pa)
  list(APPEND POLYARC_PUBLIC_PATTERNS --keep-global-symbol=${prefix}*)
endforeach()

function(polyarc_add_static_archive target output_name)
  set(merged ${CMAKE_CURRENT_BINARY_DIR}/${target}_merged${CMAKE_CXX_OUTPUT_EXTENSION})
  add_custom_command(OUTPUT ${merged}
    COMMAND ${CMAKE_LINKER} -r -o ${merged} $<TARGET_OBJECTS:polyarc_objects>
    COMMAND ${CMAKE_OBJCOPY} --localize-hidden --wildcard ${POLYARC_PUBLIC_PATTERNS} ${merged}
    DEPENDS polyarc_objects $<TARGET_OBJECTS:polyarc_objects>
    COMMAND_EXPAND_LISTS VERBATIM
    COMMENT "Linking the polyarc objects into one with only public globals")
  set_source_files_properties(${merged} PROPERTIES EXTERNAL_OBJECT ON GENERATED ON)
  add_library(${target} STATIC ${merged})
  # The object is C++ inside: C programs that link the archive need the
  # C++ run-time library.
  set_target_properties(${target} PROPERTIES LINKER_LANGUAGE CXX OUTPUT_NAME ${output_name})
  target_link_libraries(${target} INTERFACE $<$<NOT:$<LINK_LANGUAGE:CXX>>:stdc++> m)
  target_include_directories(${target} INTERFACE
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
endfunction()

if(BUILD_SHARED_LIBS)
  add_library(polyarc SHARED $<TARGET_OBJECTS:polyarc_objects>)
  target_include_directories(polyarc PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_link_options(polyarc PRIVATE -Wl,--no-undefined
    -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/exports.map)
  set_property(TARGET polyarc APPEND PROPERTY LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/exports.map)
  set_target_properties(polyarc PROPERTIES
    LINKER_LANGUAGE CXX
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR})
  if(POLYARC_BUILD_TESTS)
    # The tests check the static form's symbols too, from the same objects.
    polyarc_add_static_archive(polyarc_static polyarc_static)
  endif()
else()
  polyarc_add_static_archive(polyarc polyarc)
endif()
add_library(polyarc::polyarc ALIAS polyarc)
