// SPDX-License-Identifier: GPL-3.0-or-later
// Three places of the user's desktop: the folder of files on it, the program for mail, and the one for films. The
// actions on pictures and films use them.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QUrl>
#include <functional>

// Gives the folder that the system names for the desktop, whatever it is called in the user's language; the home folder
// where there is none. then is called later, once, unless context is gone by then.
void FindDesktopFolder(QObject* context, const std::function<void(const QString&)>& then);

// A text within a mail link: every character but " " to "~" without "&" becomes "%" and its number.
QByteArray UrlEscape(const QString& text);
// The link for a mail; empty arguments are left out.
QByteArray MailLink(const QString& to, const QString& cc, const QString& bcc, const QString& subject,
                    const QString& body);
// Opens the mail program with a mail; opened(false) where the desktop has none.
void SendMail(const QString& to, const QString& cc, const QString& bcc, const QString& subject, const QString& body,
              QObject* context, const std::function<void(bool opened)>& opened);
// Opens a film (avi, mp4, mpg) with the desktop's player; opened(false) where the desktop has none.
void OpenFilm(const QUrl& film, QObject* context, const std::function<void(bool opened)>& opened);
