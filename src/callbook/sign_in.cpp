// SPDX-License-Identifier: GPL-3.0-or-later
#include "callbook/sign_in.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

// The language files have no line for these. *** is the service, ?? the call.
struct Words {
  QLatin1StringView language;
  QStringView signIn;
  QStringView signOut;
  QStringView noBrowser;
  QStringView picture;
  QStringView distance;
};

constexpr std::array<Words, 8> kWords = {{
    {"English"_L1, u"Sign in to ***", u"Sign out of ***", u"The window for web pages could not be opened.",
     u"Picture of ??", u"Distance and direction"},
    {"Dutch"_L1, u"Aanmelden bij ***", u"Afmelden bij ***", u"Het venster voor webpagina's kon niet worden geopend.",
     u"Foto van ??", u"Afstand en richting"},
    {"French"_L1, u"Se connecter à ***", u"Se déconnecter de ***", u"La fenêtre des pages web n'a pas pu être ouverte.",
     u"Photo de ??", u"Distance et direction"},
    {"German"_L1, u"Bei *** anmelden", u"Bei *** abmelden", u"Das Fenster für Webseiten konnte nicht geöffnet werden.",
     u"Bild von ??", u"Entfernung und Richtung"},
    {"Japanese"_L1, u"*** にサインイン", u"*** からサインアウト", u"ウェブページのウィンドウを開けませんでした。",
     u"?? の写真", u"距離と方位"},
    {"Polish"_L1, u"Zaloguj się do ***", u"Wyloguj się z ***", u"Nie udało się otworzyć okna stron internetowych.",
     u"Zdjęcie ??", u"Odległość i kierunek"},
    {"Russian"_L1, u"Войти на ***", u"Выйти из ***", u"Не удалось открыть окно веб-страниц.", u"Фото ??",
     u"Расстояние и направление"},
    {"Spanish"_L1, u"Iniciar sesión en ***", u"Cerrar sesión en ***", u"No se pudo abrir la ventana de páginas web.",
     u"Foto de ??", u"Distancia y dirección"},
}};

const Words& WordsOf(const QString& languageName) {
  const auto found = std::find_if(kWords.begin(), kWords.end(),
                                  [&languageName](const Words& words) { return words.language == languageName; });
  return found == kWords.end() ? kWords.front() : *found;
}

}  // namespace

QString SignInText(const QString& languageName, const QString& service) {
  return WordsOf(languageName).signIn.toString().replace("***"_L1, service);
}

QString SignOutText(const QString& languageName, const QString& service) {
  return WordsOf(languageName).signOut.toString().replace("***"_L1, service);
}

QString NoBrowserText(const QString& languageName) {
  return WordsOf(languageName).noBrowser.toString();
}

QString PictureText(const QString& languageName, const QString& call) {
  return WordsOf(languageName).picture.toString().replace("??"_L1, call);
}

QString DistanceLabelText(const QString& languageName) {
  return WordsOf(languageName).distance.toString();
}
