# pruebas(FOLDER target...): one GoogleTest program for tests/FOLDER, named prueba_FOLDER with "_" for "/".
function(pruebas carpeta)
  file(GLOB fuentes CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${carpeta}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/${carpeta}/*.h)
  if(WIN32)
    list(FILTER fuentes EXCLUDE REGEX "/prueba_disco_lleno\\.cpp$") # a disk cannot be made small there
  endif()
  string(REPLACE "/" "_" nombre prueba_${carpeta})
  add_executable(${nombre} ${fuentes})
  target_link_libraries(${nombre} PRIVATE ${ARGN} apoyo opciones configuracion)
  target_precompile_headers(${nombre} REUSE_FROM apoyo)
  add_test(NAME ${nombre} COMMAND ${nombre})
  set_tests_properties(${nombre} PROPERTIES TIMEOUT 600 ENVIRONMENT "QT_QPA_PLATFORM=offscreen;TZ=UTC")
endfunction()
