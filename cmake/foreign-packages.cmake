# What the system has for its own programs serves those for another system too, where it is headers
# alone or comes with its sources: find_package finds it here.
function(share_headers package target folder)
  if(NOT EXISTS /usr/include/${folder})
    message(FATAL_ERROR "/usr/include/${folder} is missing: tools/packages ci")
  endif()
  # In a folder of their own: beside them lie the headers of the system itself.
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/headers)
  file(CREATE_LINK /usr/include/${folder} ${CMAKE_BINARY_DIR}/headers/${folder} SYMBOLIC)
  add_library(${target} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${target} INTERFACE ${CMAKE_BINARY_DIR}/headers)
  file(WRITE ${CMAKE_FIND_PACKAGE_REDIRECTS_DIR}/${package}-config.cmake "")
endfunction()

share_headers(cli11 CLI11::CLI11 CLI)
share_headers(nlohmann_json nlohmann_json::nlohmann_json nlohmann)
if(KEHYSTIN_TESTS)
  add_subdirectory(/usr/src/googletest/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
  file(WRITE ${CMAKE_FIND_PACKAGE_REDIRECTS_DIR}/gtest-config.cmake "")
endif()
