# SPDX-License-Identifier: GPL-3.0-or-later
# Compiles data/translations/*.ts and puts the catalogues into a target as the resource :/translations.

find_program(LRELEASE lrelease HINTS /usr/lib/qt6/bin REQUIRED)

function(omni_translations target)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/data/translations/*.ts)
  set(catalogues)
  foreach(source ${sources})
    get_filename_component(name ${source} NAME_WE)
    set(catalogue ${CMAKE_CURRENT_BINARY_DIR}/${name}.qm)
    add_custom_command(OUTPUT ${catalogue} DEPENDS ${source} VERBATIM
      COMMAND ${LRELEASE} -silent ${source} -qm ${catalogue})
    list(APPEND catalogues ${catalogue})
  endforeach()
  qt_add_resources(${target} omni_translations PREFIX /translations BASE ${CMAKE_CURRENT_BINARY_DIR} FILES ${catalogues})
endfunction()
