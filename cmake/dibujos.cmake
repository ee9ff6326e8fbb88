# dibujos(TARGET): compiles the drawings of resources/ in, as pictures that need no other library to be shown.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
set(DIBUJOS ${CMAKE_BINARY_DIR}/generado/dibujos)

function(dibujos destino)
  set(fuentes ${CMAKE_SOURCE_DIR}/resources)
  file(GLOB trazos CONFIGURE_DEPENDS ${fuentes}/icons/*.svg ${fuentes}/icons/controles/*.svg ${fuentes}/images/*.svg)
  add_custom_command(OUTPUT ${DIBUJOS}/dibujos.cpp ${DIBUJOS}/altoverde.ico
    COMMAND Python3::Interpreter ${fuentes}/dibujar.py ${fuentes} ${DIBUJOS}
    COMMAND Qt6::rcc --no-zstd --name dibujos -o ${DIBUJOS}/dibujos.cpp ${DIBUJOS}/dibujos.qrc
    DEPENDS ${trazos} ${fuentes}/dibujar.py COMMENT "Drawing the pictures" VERBATIM)
  target_sources(${destino} PRIVATE ${DIBUJOS}/dibujos.cpp)
  set_source_files_properties(${DIBUJOS}/dibujos.cpp PROPERTIES SKIP_AUTOGEN ON SKIP_PRECOMPILE_HEADERS ON)
endfunction()
