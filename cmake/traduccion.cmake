# Qt's own Spanish texts, compiled in, so that an installed program has them wherever Qt's folders are.
get_target_property(QMAKE Qt6::qmake IMPORTED_LOCATION)
execute_process(COMMAND ${QMAKE} -query QT_INSTALL_TRANSLATIONS OUTPUT_VARIABLE QT_TRADUCCIONES OUTPUT_STRIP_TRAILING_WHITESPACE)
find_file(QTBASE_ES qtbase_es.qm PATHS ${QT_TRADUCCIONES} NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/generado/traduccion.qrc CONTENT
"<RCC>
    <qresource prefix=\"/traduccion\">
        <file alias=\"qtbase_es.qm\">${QTBASE_ES}</file>
    </qresource>
</RCC>
")
