# The target xlsxwriter. Debian's library is shared and has no package for CMake; the one for Windows is static, so what
# it stands on is linked as well.
find_path(XLSXWRITER_CABECERAS xlsxwriter.h REQUIRED)
find_library(XLSXWRITER_BIBLIOTECA xlsxwriter REQUIRED)
add_library(xlsxwriter UNKNOWN IMPORTED)
set_target_properties(xlsxwriter PROPERTIES
  IMPORTED_LOCATION ${XLSXWRITER_BIBLIOTECA} INTERFACE_INCLUDE_DIRECTORIES ${XLSXWRITER_CABECERAS})
if(WIN32)
  find_package(ZLIB REQUIRED)
  target_link_libraries(xlsxwriter INTERFACE ZLIB::ZLIB)
endif()
