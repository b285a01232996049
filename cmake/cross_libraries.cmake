# The libraries of others when cross-building, under the names that find_package gives them: the header-only ones from
# this machine, GoogleTest from its sources. Of /usr/include nothing but these headers may be seen, so that the
# include folder of the build has links to them.
set(headers ${PROJECT_BINARY_DIR}/headers)
file(MAKE_DIRECTORY ${headers})
function(velmar_header_library name folder)
  set(found /usr/include/${folder})
  if(NOT EXISTS ${found})
    message(FATAL_ERROR "${found} is missing: scripts/install.sh installs it")
  endif()
  file(CREATE_LINK ${found} ${headers}/${folder} SYMBOLIC)
  add_library(${name} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${name} SYSTEM INTERFACE ${headers})
endfunction()
velmar_header_library(CLI11::CLI11 CLI)
velmar_header_library(nlohmann_json::nlohmann_json nlohmann)

if(VELMAR_TESTS)
  set(VELMAR_GOOGLETEST /usr/src/googletest CACHE PATH "The sources of GoogleTest")
  set(INSTALL_GTEST OFF)
  add_subdirectory(${VELMAR_GOOGLETEST} googletest EXCLUDE_FROM_ALL SYSTEM)
endif()
