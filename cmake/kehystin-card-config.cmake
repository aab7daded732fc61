include("${CMAKE_CURRENT_LIST_DIR}/kehystin-card-targets.cmake")
