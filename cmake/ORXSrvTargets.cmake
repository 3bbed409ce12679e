# Helpers that make the project's shared libraries from whole source folders, so that adding a class
# is adding its file pair.

set(ORXSRV_PUBLIC_HEADERS "" CACHE INTERNAL "")

# orxsrv_add_library(<name> DIRS <dir>... [LINKS <target>...] [MODULE_PATHS] [LINK_LAST <source>])
# Builds every .cpp of the folders into one shared library. With MODULE_PATHS each source gets
# ORXSRV_MODULE_PATH, the module path ("<folder>/<Class>") that its failure reports name.
# LINK_LAST (a path below the project folder) puts that source last on the link line, so that its
# load-time initialisers run after those of every other source of the library.
function(orxsrv_add_library name)
  cmake_parse_arguments(ARG "MODULE_PATHS" "LINK_LAST" "DIRS;LINKS" ${ARGN})
  set(sources "")
  set(headers "")
  foreach(dir IN LISTS ARG_DIRS)
    file(GLOB dir_sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${dir}/*.cpp")
    file(GLOB dir_headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${dir}/*.h")
    list(APPEND sources ${dir_sources})
    # Headers beside the platform's sources are its private ones; the services' headers are public.
    if(ARG_MODULE_PATHS)
      list(APPEND headers ${dir_headers})
    endif()
    if(ARG_MODULE_PATHS)
      foreach(src IN LISTS dir_sources)
        get_filename_component(cls "${src}" NAME_WE)
        set_property(SOURCE "${src}" APPEND PROPERTY COMPILE_DEFINITIONS "ORXSRV_MODULE_PATH=\"${dir}/${cls}\"")
      endforeach()
    endif()
  endforeach()
  if(ARG_LINK_LAST)
    set(last "${PROJECT_SOURCE_DIR}/${ARG_LINK_LAST}")
    if(NOT last IN_LIST sources)
      message(FATAL_ERROR "LINK_LAST source ${ARG_LINK_LAST} is not a source of ${name}")
    endif()
    list(REMOVE_ITEM sources "${last}")
    list(APPEND sources "${last}")
  endif()
  if(name STREQUAL "ORXBasBase")
    file(GLOB interface_headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/interfaces/*.h")
    list(APPEND headers ${interface_headers})
  endif()
  add_library(${name} SHARED ${sources} ${headers})
  add_library(ORXSrvBasic::${name} ALIAS ${name})
  target_include_directories(${name} PUBLIC
    "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/interfaces>"
    "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/ORXSrvBasic>")
  foreach(dir IN LISTS ARG_DIRS)
    if(ARG_MODULE_PATHS)
      target_include_directories(${name} PUBLIC "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/${dir}>")
    else()
      target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/${dir}")
    endif()
  endforeach()
  if(ARG_LINKS)
    target_link_libraries(${name} PUBLIC ${ARG_LINKS})
  endif()
  target_compile_features(${name} PUBLIC cxx_std_20)
  # Installed side by side, the libraries find each other through their own folder: a host's RUNPATH
  # covers only the libraries it links directly.
  set_target_properties(${name} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
    INSTALL_RPATH "$ORIGIN")
  set(ORXSRV_PUBLIC_HEADERS "${ORXSRV_PUBLIC_HEADERS};${headers}" CACHE INTERNAL "")
endfunction()

# Writes ORXSrvBasic.h, which includes every public header of the platform and the services.
function(orxsrv_generate_umbrella_header)
  set(lines "// Generated at configure time: every public declaration of ORXSrvBasic and its platform.\n")
  string(APPEND lines "#pragma once\n")
  set(names "")
  foreach(header IN LISTS ORXSRV_PUBLIC_HEADERS)
    if(header)
      get_filename_component(base "${header}" NAME)
      list(APPEND names "${base}")
    endif()
  endforeach()
  list(SORT names)
  list(REMOVE_DUPLICATES names)
  foreach(base IN LISTS names)
    string(APPEND lines "#include <${base}>\n")
  endforeach()
  set(out "${PROJECT_BINARY_DIR}/include/ORXSrvBasic.h")
  file(CONFIGURE OUTPUT "${out}" CONTENT "${lines}")
  target_include_directories(ORXSrvBasic PUBLIC "$<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>")
endfunction()
