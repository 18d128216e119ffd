# The translations, as the resource "translations" of the windows. scripts/translations brings the .ts files
# up to date with the code.
find_program(LRELEASE NAMES lrelease lrelease-qt6 HINTS ${QT6_INSTALL_PREFIX}/lib/qt6/bin REQUIRED)

set(folder ${CMAKE_CURRENT_BINARY_DIR}/translations)
set(list "<RCC><qresource prefix=\"/translations\">\n")
foreach(language de)
  set(texts ${PROJECT_SOURCE_DIR}/translations/quillet_${language}.ts)
  set(compiled ${folder}/quillet_${language}.qm)
  add_custom_command(OUTPUT ${compiled} COMMAND ${LRELEASE} -silent ${texts} -qm ${compiled}
    DEPENDS ${texts} VERBATIM)
  list(APPEND all_compiled ${compiled})
  string(APPEND list "<file>quillet_${language}.qm</file>\n")
endforeach()
file(CONFIGURE OUTPUT ${folder}/translations.qrc CONTENT "${list}</qresource></RCC>\n")
add_custom_command(OUTPUT ${folder}/qrc_translations.cpp
  COMMAND Qt6::rcc -name translations -o ${folder}/qrc_translations.cpp ${folder}/translations.qrc
  DEPENDS ${folder}/translations.qrc ${all_compiled} VERBATIM)
set_source_files_properties(${folder}/qrc_translations.cpp PROPERTIES SKIP_AUTOGEN ON)
target_sources(quillet_windows PRIVATE ${folder}/qrc_translations.cpp)
