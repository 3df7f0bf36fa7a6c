# SPDX-License-Identifier: GPL-3.0-or-later
# What every target of this project shares: the strict Qt defines, the warnings, the sanitizers and ccache.

# Paths count from the project's folder, so that two clones share what the compiler has made for either.
find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE})
endif()

# omni_target(target [BESIDE]). BESIDE: code beside the product (tests, the simulated band, the bench). It is compiled without
# the checks for undefined behaviour, which more than double the time that the compiler takes for it.
function(omni_target target)
  target_compile_definitions(${target} PRIVATE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
    QT_NO_KEYWORDS QT_NO_CONTEXTLESS_CONNECT QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wshadow -Wconversion)
  if(CCACHE)
    target_compile_options(${target} PRIVATE -fpch-preprocess)
  endif()
  if(OMNI_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(OMNI_SANITIZE)
    set(sanitizers address,undefined)
    if("BESIDE" IN_LIST ARGN)
      set(sanitizers address)
    endif()
    target_compile_options(${target} PRIVATE -fsanitize=${sanitizers} -fno-omit-frame-pointer -O1)
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  endif()
endfunction()

# A small precompiled header: the Qt classes that nearly every module includes.
function(omni_precompile target)
  target_precompile_headers(${target} PRIVATE
    <QByteArray> <QDateTime> <QDir> <QFile> <QHash> <QList> <QObject> <QRegularExpression> <QString> <QStringList>
    <QTimer> <QUrl> <algorithm> <chrono> <functional> <memory> <optional>)
endfunction()
