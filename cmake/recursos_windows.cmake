# recursos_windows(TARGET): icon, version and manifest of a Windows program.
function(recursos_windows destino)
  set(salida ${CMAKE_BINARY_DIR}/generado/recursos_windows)
  foreach(archivo altoverde.rc altoverde.manifest)
    configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/${archivo}.in ${salida}/${archivo} @ONLY)
  endforeach()
  set_source_files_properties(${salida}/altoverde.rc PROPERTIES
    OBJECT_DEPENDS "${DIBUJOS}/altoverde.ico;${salida}/altoverde.manifest" INCLUDE_DIRECTORIES ${salida})
  target_sources(${destino} PRIVATE ${salida}/altoverde.rc)
endfunction()
