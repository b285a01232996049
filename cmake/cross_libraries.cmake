# The libraries of others when cross-building, under the names that find_package gives them: the header-only ones from
# this machine, GoogleTest from its sources. Of /usr/include nothing but these headers may be seen, so that the
# build's folder has links to them.
set(headers ${PROJECT_BINARY_DIR}/headers)
file(MAKE_DIRECTORY ${headers})
foreach(header CLI nlohmann xxhash.h)
  if(NOT EXISTS /usr/include/${header})
    message(FATAL_ERROR "/usr/include/${header} is missing: scripts/install.sh installs it")
  endif()
  file(CREATE_LINK /usr/include/${header} ${headers}/${header} SYMBOLIC)
endforeach()
include_directories(SYSTEM ${headers})
add_library(CLI11::CLI11 INTERFACE IMPORTED GLOBAL)
add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED GLOBAL)

if(VELMAR_TESTS)
  set(VELMAR_GOOGLETEST /usr/src/googletest CACHE PATH "The sources of GoogleTest")
  set(INSTALL_GTEST OFF)
  add_subdirectory(${VELMAR_GOOGLETEST} googletest EXCLUDE_FROM_ALL SYSTEM)
endif()
