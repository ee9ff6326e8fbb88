# Plays one acceptance script in a fresh copy of the installation. Its comment lines of these forms say what it needs:
#   # base: ARCHIVO      this file in the place of the database; it must come out as it is
#   # sql: ARCHIVO       statements run on the database first
#   # datos: CARPETA     its files are copied into the program's folder
#   # borrar: ARCHIVO    not there when the program starts
#   # ftp: COMO          with an FTP server of its own, as con_ftp.py tells: si, cerrado, vsftpd:si ...
#   # salida: N          exit status of the robot, 0 unless told
#   # despues: GUION     another start of the program in the same folder
# Paths are relative to the script. Files in X.esperado/ beside X.guion must have come out equal, byte by byte.
# The variable ROBOT_OPCIONES of the environment adds an option to the robot's own, "--pantalla" for one.
cmake_minimum_required(VERSION 3.25)

set(PROGRAMA ${TRABAJO}/programa)
set(FTP ${TRABAJO}/ftp)

# The values of a script's "# clave: valor" lines, as a list.
function(cabecera guion clave salida)
  file(STRINGS ${guion} lineas ENCODING UTF-8)
  set(valores)
  foreach(linea IN LISTS lineas)
    if(linea MATCHES "^# *${clave}: *(.*[^ ]) *$")
      list(APPEND valores ${CMAKE_MATCH_1})
    endif()
  endforeach()
  set(${salida} ${valores} PARENT_SCOPE)
endfunction()

function(preparar guion)
  get_filename_component(carpeta ${guion} DIRECTORY)
  file(REMOVE_RECURSE ${TRABAJO})
  file(GLOB piezas ${INSTALACION}/*)
  list(FILTER piezas EXCLUDE REGEX "/(Altoverde(\\.exe)?|Copias|[^/]*\\.(ldb|mdb))$") # what a start there has left, too
  file(COPY ${piezas} DESTINATION ${PROGRAMA})
  file(COPY ${BASE} DESTINATION ${PROGRAMA})
  cabecera(${guion} base base)
  cabecera(${guion} datos datos)
  cabecera(${guion} borrar sobran)
  if(base)
    file(COPY_FILE ${carpeta}/${base} ${PROGRAMA}/DBBrivo.mdb)
  endif()
  foreach(dato IN LISTS datos)
    file(COPY ${carpeta}/${dato}/ DESTINATION ${PROGRAMA})
  endforeach()
  foreach(archivo IN LISTS sobran)
    file(REMOVE_RECURSE ${PROGRAMA}/${archivo})
  endforeach()
endfunction()

function(jugar guion)
  cabecera(${guion} salida esperado)
  cabecera(${guion} sql sentencias)
  cabecera(${guion} ftp ftp)
  if(NOT esperado)
    set(esperado 0)
  endif()
  set(orden ${ROBOT} ${guion} --en ${PROGRAMA} --foto ${TRABAJO}/falla.png $ENV{ROBOT_OPCIONES})
  get_filename_component(carpeta ${guion} DIRECTORY)
  foreach(archivo IN LISTS sentencias)
    list(APPEND orden --sql ${carpeta}/${archivo})
  endforeach()
  if(ftp)
    set(orden ${PYTHON} ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/con_ftp.py ${ftp} ${FTP} ${orden})
  endif()
  message("--- ${guion}")
  execute_process(COMMAND ${orden} RESULT_VARIABLE estado)
  if(NOT estado STREQUAL esperado)
    message(FATAL_ERROR "${guion}: exit status ${estado}, expected ${esperado} (picture: ${TRABAJO}/falla.png)")
  endif()
  cabecera(${guion} despues siguientes)
  foreach(siguiente IN LISTS siguientes)
    jugar(${carpeta}/${siguiente})
  endforeach()
endfunction()

function(iguales esperado producido)
  execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${esperado} ${producido} RESULT_VARIABLE distinto)
  if(distinto)
    message(FATAL_ERROR "${producido} is not ${esperado}")
  endif()
endfunction()

function(comparar guion)
  string(REGEX REPLACE "\\.guion$" ".esperado" esperados ${guion})
  get_filename_component(carpeta ${guion} DIRECTORY)
  file(GLOB_RECURSE archivos RELATIVE ${esperados} ${esperados}/*)
  foreach(archivo IN LISTS archivos)
    iguales(${esperados}/${archivo} ${PROGRAMA}/${archivo})
  endforeach()
  cabecera(${guion} base base)
  if(base)
    iguales(${carpeta}/${base} ${PROGRAMA}/DBBrivo.mdb)
  endif()
endfunction()

preparar(${GUION})
jugar(${GUION})
comparar(${GUION})
