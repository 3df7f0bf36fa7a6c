# SPDX-License-Identifier: GPL-3.0-or-later
# The places of what cmake --install installs: the program, its decoder and its player of films side by side (the program
# looks for both in its own folder), the launcher, the defaults that the launcher copies for each user, and the desktop's
# entry.

if(CMAKE_INSTALL_PREFIX_INITIALIZED_TO_DEFAULT)
  set(CMAKE_INSTALL_PREFIX /usr CACHE PATH "Install prefix" FORCE)
endif()

install(TARGETS omni-perch RUNTIME DESTINATION lib/omni-perch)
if(TARGET omni-perch-decoder)
  install(TARGETS omni-perch-decoder RUNTIME DESTINATION lib/omni-perch)
endif()
if(TARGET omni-perch-player)
  install(TARGETS omni-perch-player RUNTIME DESTINATION lib/omni-perch)
endif()
# Beside the program, which loads the library from there when the first browser window opens.
if(TARGET omni_web)
  install(TARGETS omni_web LIBRARY DESTINATION lib/omni-perch)
endif()
install(PROGRAMS data/desktop/launcher.sh DESTINATION bin RENAME omni-perch)
# By which the launcher knows a default that its user has not changed.
install(FILES data/desktop/former-defaults DESTINATION lib/omni-perch)

install(FILES data/Omni-Perch.cfg data/WXsites.lst data/Help.txt data/hosts.ini DESTINATION share/omni-perch)
foreach(folder Languages Maps)
  if(EXISTS ${PROJECT_SOURCE_DIR}/data/${folder})
    install(DIRECTORY data/${folder} DESTINATION share/omni-perch)
  endif()
endforeach()

install(FILES data/desktop/omni-perch.desktop DESTINATION share/applications)
install(FILES data/desktop/omni-perch.svg DESTINATION share/icons/hicolor/scalable/apps)
# Made from the drawing by scripts/make-icons.
foreach(size 16 22 24 32 48 64 128 256)
  install(FILES data/desktop/icons/${size}x${size}/omni-perch.png DESTINATION share/icons/hicolor/${size}x${size}/apps)
endforeach()
install(FILES data/desktop/localhost.omni_perch.omni_perch.metainfo.xml DESTINATION share/metainfo)
install(FILES data/desktop/omni-perch.1 DESTINATION share/man/man1)
