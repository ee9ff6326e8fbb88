# What an installation must supply, gathered in one generated header, configuracion.h.
set(ALTOVERDE_FTP_SERVIDOR "localhost" CACHE STRING "FTP host of the declarations, host or host:port")
set(ALTOVERDE_BUZON_DDJJ "ddjj@example.org" CACHE STRING "mailbox of the declarations")
set(ALTOVERDE_WEB "http://www.example.org" CACHE STRING "web address of the organisation")
set(ALTOVERDE_CORREO_SOPORTE "soporte@example.org" CACHE STRING "support e-mail")
set(ALTOVERDE_TELEFONO_SOPORTE "(0000) 00-0000" CACHE STRING "support telephone")
set(ALTOVERDE_ENLACE_VERSION "http://www.example.org/descargas/Altoverde-X.X" CACHE STRING "link of the new version")

configure_file(${CMAKE_CURRENT_LIST_DIR}/configuracion.h.in ${CMAKE_BINARY_DIR}/generado/configuracion.h @ONLY)
add_library(configuracion INTERFACE)
target_include_directories(configuracion INTERFACE ${CMAKE_BINARY_DIR}/generado)
