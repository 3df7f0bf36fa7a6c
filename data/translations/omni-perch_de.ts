<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>Backup</name>
    <message>
        <source>The folder cannot be made.</source>
        <translation>Der Ordner kann nicht angelegt werden.</translation>
    </message>
</context>
<context>
    <name>BrowserPages</name>
    <message>
        <source>Not saved: %1</source>
        <translation>Nicht gespeichert: %1</translation>
    </message>
</context>
<context>
    <name>CallListModel</name>
    <message>
        <source>%1, edited</source>
        <translation>%1, geändert</translation>
    </message>
</context>
<context>
    <name>CamModel</name>
    <message>
        <source>on this page</source>
        <translation>auf dieser Seite</translation>
    </message>
</context>
<context>
    <name>CamWords</name>
    <message>
        <source>cam is being tested</source>
        <translation>Kamera wird geprüft</translation>
    </message>
    <message>
        <source>cam answers</source>
        <translation>Kamera antwortet</translation>
    </message>
    <message>
        <source>cam does not answer</source>
        <translation>Kamera antwortet nicht</translation>
    </message>
    <message>
        <source>no cam tested</source>
        <translation>keine Kamera geprüft</translation>
    </message>
</context>
<context>
    <name>CellGridView</name>
    <message>
        <source>Pictures are not decoded: this system has no sandbox for the decoder (no seccomp filters)</source>
        <translation>Bilder werden nicht dekodiert: Dieses System hat keine Sandbox für den Decoder (Seccomp-Filter fehlen)</translation>
    </message>
</context>
<context>
    <name>CleanField</name>
    <message>
        <source>Cut: only %1 letters fit.</source>
        <translation>Gekürzt: Es passen nur %1 Zeichen.</translation>
    </message>
    <message>
        <source>* and line ends are left out.</source>
        <translation>* und Zeilenenden werden weggelassen.</translation>
    </message>
    <message>
        <source>Line ends are left out.</source>
        <translation>Zeilenenden werden weggelassen.</translation>
    </message>
    <message>
        <source>Emoji and foreign letters are left out.</source>
        <translation>Emojis und fremde Buchstaben werden weggelassen.</translation>
    </message>
</context>
<context>
    <name>CompareWindow</name>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Comparison</source>
        <translation>Vergleich</translation>
    </message>
    <message>
        <source>This picture cannot be shown.</source>
        <translation>Dieses Bild kann nicht gezeigt werden.</translation>
    </message>
</context>
<context>
    <name>CoordinateFetch</name>
    <message>
        <source>This is no callsign.</source>
        <translation>Das ist kein Rufzeichen.</translation>
    </message>
    <message>
        <source>%1 not found on %2</source>
        <translation>%1 bei %2 nicht gefunden</translation>
    </message>
    <message>
        <source>* Coordinates not available from %1
    Derived from address or zipcode.</source>
        <translation>* Koordinaten bei %1 nicht verfügbar
    Aus Adresse oder Postleitzahl abgeleitet.</translation>
    </message>
</context>
<context>
    <name>EasyPalPaste</name>
    <message>
        <source>EasyPal did not come to the front. The picture is on the clipboard: press F7 in EasyPal.</source>
        <translation>EasyPal kam nicht nach vorn. Das Bild ist in der Zwischenablage: Drücken Sie F7 in EasyPal.</translation>
    </message>
    <message>
        <source>The picture is on the clipboard. Press F7 in EasyPal to paste it.</source>
        <translation>Das Bild ist in der Zwischenablage. Drücken Sie F7 in EasyPal, um es einzufügen.</translation>
    </message>
</context>
<context>
    <name>EmptyPage</name>
    <message>
        <source>No station stands on any page yet</source>
        <translation>Noch steht auf keiner Seite eine Station</translation>
    </message>
    <message>
        <source>The list of weather pictures is empty</source>
        <translation>Die Liste der Wetterbilder ist leer</translation>
    </message>
    <message>
        <source>Your list has no sites. Get those of the author&apos;s list, or add one yourself.</source>
        <translation>Ihre Liste enthält keine Stationen. Holen Sie die Liste des Autors, oder fügen Sie selbst eine Station hinzu.</translation>
    </message>
    <message numerus="yes">
        <source>Your list has %n site(s). Open the site index and press the one that is to stand in the first place of this page.</source>
        <translation>
            <numerusform>Ihre Liste enthält %n Station. Öffnen Sie das Stationsverzeichnis und drücken Sie auf sie, um sie auf den ersten Platz dieser Seite zu setzen.</numerusform>
            <numerusform>Ihre Liste enthält %n Stationen. Öffnen Sie das Stationsverzeichnis und drücken Sie auf diejenige, die auf dem ersten Platz dieser Seite stehen soll.</numerusform>
        </translation>
    </message>
    <message>
        <source>Get the author&apos;s list</source>
        <translation>Liste des Autors holen</translation>
    </message>
    <message>
        <source>The author&apos;s server is not named in hosts.ini.</source>
        <translation>Der Server des Autors steht nicht in hosts.ini.</translation>
    </message>
    <message>
        <source>Your callsign and location are set.</source>
        <translation>Rufzeichen und Standort sind eingetragen.</translation>
    </message>
    <message>
        <source>Put the copy back</source>
        <translation>Kopie zurückholen</translation>
    </message>
    <message numerus="yes">
        <source>There is a copy of %1 with %n site(s). Putting it back adds them to the list; nothing is removed.</source>
        <translation>
            <numerusform>Es gibt eine Kopie vom %1 mit %n Station. Wird sie zurückgeholt, kommt diese in die Liste; entfernt wird nichts.</numerusform>
            <numerusform>Es gibt eine Kopie vom %1 mit %n Stationen. Wird sie zurückgeholt, kommen diese in die Liste; entfernt wird nichts.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>They return to their places on %n page(s).</source>
        <translation>
            <numerusform>Ihre Plätze auf %n Seite bekommen sie wieder.</numerusform>
            <numerusform>Ihre Plätze auf %n Seiten bekommen sie wieder.</numerusform>
        </translation>
    </message>
    <message>
        <source>These files could not be written: %1</source>
        <translation>Diese Dateien konnten nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <source>The author&apos;s list is being fetched...</source>
        <translation>Die Liste des Autors wird geholt …</translation>
    </message>
    <message>
        <source>The author&apos;s list could not be fetched.</source>
        <translation>Die Liste des Autors konnte nicht geholt werden.</translation>
    </message>
</context>
<context>
    <name>FetchGroup</name>
    <message>
        <source>%1 has %2, %3. What you have typed stays.</source>
        <translation>%1 nennt %2, %3. Ihre Eingabe bleibt stehen.</translation>
    </message>
</context>
<context>
    <name>FilmControls</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Vor</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Position in the film</source>
        <translation>Stelle im Film</translation>
    </message>
    <message>
        <source>Sound on</source>
        <translation>Ton ein</translation>
    </message>
    <message>
        <source>Sound off</source>
        <translation>Ton aus</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>Leave the full screen</source>
        <translation>Vollbild verlassen</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>Vollbild</translation>
    </message>
</context>
<context>
    <name>Form1</name>
    <message>
        <source>Automatic refresh rests because a picture was opened. It goes on after the next refresh or change of page.</source>
        <translation>Die automatische Aktualisierung ruht, weil ein Bild geöffnet wurde. Sie geht nach der nächsten Aktualisierung oder einem Seitenwechsel weiter.</translation>
    </message>
</context>
<context>
    <name>Form11</name>
    <message>
        <source>Without your position no distance can be told, and no map shows you.</source>
        <translation>Ohne Ihren Standort gibt es keine Entfernungen, und keine Karte zeigt Sie.</translation>
    </message>
    <message>
        <source>Not a callsign; your own callsign stays as it is.</source>
        <translation>Kein Rufzeichen; Ihr eigenes Rufzeichen bleibt, wie es ist.</translation>
    </message>
</context>
<context>
    <name>Form12</name>
    <message>
        <source>Distance and direction</source>
        <translation>Entfernung und Richtung</translation>
    </message>
</context>
<context>
    <name>Form13</name>
    <message>
        <source>Picture of %1</source>
        <translation>Bild von %1</translation>
    </message>
</context>
<context>
    <name>Form15</name>
    <message>
        <source>Rows of pictures</source>
        <translation>Bilderreihen</translation>
    </message>
    <message>
        <source>%1 of %2 pictures</source>
        <translation>%1 von %2 Bildern</translation>
    </message>
</context>
<context>
    <name>Form18</name>
    <message>
        <source>Blocked text %1</source>
        <translation>Gesperrter Text %1</translation>
    </message>
</context>
<context>
    <name>Form2</name>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>The picture is being decoded …</source>
        <translation>Das Bild wird dekodiert …</translation>
    </message>
    <message>
        <source>This picture cannot be shown: its file is gone, or damaged.</source>
        <translation>Dieses Bild kann nicht gezeigt werden: Seine Datei fehlt oder ist beschädigt.</translation>
    </message>
    <message>
        <source>Pictures are not decoded: this system has no sandbox for the decoder (no seccomp filters)</source>
        <translation>Bilder werden nicht dekodiert: Dieses System hat keine Sandbox für den Decoder (Seccomp-Filter fehlen)</translation>
    </message>
    <message>
        <source>A film: Return plays it.</source>
        <translation>Ein Film: Die Eingabetaste spielt ihn ab.</translation>
    </message>
</context>
<context>
    <name>Form21</name>
    <message>
        <source>Fits on the page</source>
        <translation>Passt auf die Seite</translation>
    </message>
    <message>
        <source>Larger than the page</source>
        <translation>Größer als die Seite</translation>
    </message>
    <message>
        <source>Cancel the print</source>
        <translation>Druck abbrechen</translation>
    </message>
    <message>
        <source>Preview of the page</source>
        <translation>Vorschau der Seite</translation>
    </message>
    <message>
        <source>Waiting for the printer ...</source>
        <translation>Auf den Drucker wird gewartet ...</translation>
    </message>
    <message>
        <source>The picture is being read ...</source>
        <translation>Das Bild wird gelesen ...</translation>
    </message>
    <message>
        <source>Printing ...</source>
        <translation>Es wird gedruckt ...</translation>
    </message>
    <message>
        <source>There is no printer.</source>
        <translation>Es gibt keinen Drucker.</translation>
    </message>
    <message>
        <source>The picture has gone to the printer.</source>
        <translation>Das Bild ist an den Drucker gegangen.</translation>
    </message>
    <message>
        <source>Written: %1</source>
        <translation>Geschrieben: %1</translation>
    </message>
    <message>
        <source>The print was cancelled.</source>
        <translation>Der Druck wurde abgebrochen.</translation>
    </message>
    <message>
        <source>This picture cannot be printed: it cannot be decoded.</source>
        <translation>Dieses Bild kann nicht gedruckt werden: Es lässt sich nicht dekodieren.</translation>
    </message>
    <message>
        <source>The printer does not take the picture.</source>
        <translation>Der Drucker nimmt das Bild nicht an.</translation>
    </message>
    <message>
        <source>This file could not be written: %1</source>
        <translation>Diese Datei konnte nicht geschrieben werden: %1</translation>
    </message>
</context>
<context>
    <name>Form22</name>
    <message>
        <source>New version</source>
        <translation>Neue Version</translation>
    </message>
</context>
<context>
    <name>Form26</name>
    <message>
        <source>Edited, not saved: %1</source>
        <translation>Geändert, nicht gespeichert: %1</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>%1 was deleted</source>
        <translation>%1 wurde gelöscht</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>%1 is in the database already. Replace its record by what the boxes show?</source>
        <translation>%1 steht schon in der Datenbank. Den Eintrag durch die angezeigten Angaben ersetzen?</translation>
    </message>
</context>
<context>
    <name>Form5</name>
    <message>
        <source>Close without saving</source>
        <translation>Ohne Speichern schließen</translation>
    </message>
    <message>
        <source>Name of the page</source>
        <translation>Name der Seite</translation>
    </message>
    <message>
        <source>These files could not be written: %1. The new names and places hold as long as the program runs; when it closes it tries again.</source>
        <translation>Diese Dateien konnten nicht geschrieben werden: %1. Die neuen Namen und Plätze gelten, solange das Programm läuft; beim Beenden versucht es das noch einmal.</translation>
    </message>
    <message>
        <source>The pictures in this folder could not be moved, so nothing has been changed: %1</source>
        <translation>Die Bilder in diesem Ordner konnten nicht verschoben werden, daher wurde nichts geändert: %1</translation>
    </message>
</context>
<context>
    <name>Form6</name>
    <message>
        <source>Remove all</source>
        <translation>Alle entfernen</translation>
    </message>
    <message>
        <source>Keep all</source>
        <translation>Alle behalten</translation>
    </message>
    <message>
        <source>The changes were not made, as these files could not be written:</source>
        <translation>Die Änderungen wurden nicht vorgenommen, da diese Dateien nicht geschrieben werden konnten:</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Ohne Speichern schließen</translation>
    </message>
</context>
<context>
    <name>Form7</name>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>This entry is changed and not saved yet.</source>
        <translation>Dieser Eintrag ist geändert und noch nicht gespeichert.</translation>
    </message>
    <message>
        <source>Callsign and address must not be empty.</source>
        <translation>Rufzeichen und Adresse dürfen nicht leer sein.</translation>
    </message>
    <message>
        <source>Entries with changes that are not saved: %1. Close all the same?</source>
        <translation>Einträge mit nicht gespeicherten Änderungen: %1. Trotzdem schließen?</translation>
    </message>
    <message>
        <source>Go back</source>
        <translation>Zurück</translation>
    </message>
</context>
<context>
    <name>MainUpdates</name>
    <message>
        <source>The sites have been changed, but their positions could not be written to the call database.</source>
        <translation>Die Stationen wurden geändert, aber ihre Positionen konnten nicht in die Rufzeichen-Datenbank geschrieben werden.</translation>
    </message>
</context>
<context>
    <name>MapWindow</name>
    <message>
        <source>%1 cannot be read</source>
        <translation>%1 kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>%1° S</source>
        <translation>%1° S</translation>
    </message>
    <message>
        <source>%1° N</source>
        <translation>%1° N</translation>
    </message>
    <message>
        <source>%1° W</source>
        <translation>%1° W</translation>
    </message>
    <message>
        <source>%1° E</source>
        <translation>%1° O</translation>
    </message>
</context>
<context>
    <name>MediaViews</name>
    <message>
        <source>Pages cannot be shown here: a part of the program (libomni_web.so) is missing.</source>
        <translation>Seiten können hier nicht gezeigt werden: Ein Teil des Programms (libomni_web.so) fehlt.</translation>
    </message>
    <message>
        <source>Open in the browser</source>
        <translation>Im Browser öffnen</translation>
    </message>
    <message>
        <source>Films cannot be played: a part of the program (omni-perch-player) is missing.</source>
        <translation>Filme können nicht abgespielt werden: Ein Teil des Programms (omni-perch-player) fehlt.</translation>
    </message>
    <message>
        <source>The film could not be copied for the desktop&apos;s player.</source>
        <translation>Der Film konnte nicht für das Abspielprogramm des Desktops kopiert werden.</translation>
    </message>
    <message>
        <source>The desktop has no player for films.</source>
        <translation>Der Desktop hat kein Abspielprogramm für Filme.</translation>
    </message>
    <message>
        <source>Open the film with the desktop&apos;s own player? It has no sandbox: a film that is made to do harm can do it there.</source>
        <translation>Den Film mit dem Abspielprogramm des Desktops öffnen? Es hat keine Sandbox: Ein Film, der Schaden anrichten soll, kann es dort.</translation>
    </message>
</context>
<context>
    <name>MenuStrip</name>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message>
        <source>The author&apos;s list of sites has been compared</source>
        <translation>Die Stationsliste des Autors wurde verglichen</translation>
    </message>
</context>
<context>
    <name>NotWrittenWords</name>
    <message>
        <source>%1 could not be written: is the disk full, or the folder read-only? Nothing has been changed; what you typed stays here.</source>
        <translation>%1 konnte nicht geschrieben werden: Ist der Datenträger voll oder der Ordner schreibgeschützt? Nichts wurde geändert; Ihre Eingaben bleiben hier stehen.</translation>
    </message>
</context>
<context>
    <name>OnAirModel</name>
    <message>
        <source>Call</source>
        <translation>Ruf</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>MHz</source>
        <translation>MHz</translation>
    </message>
    <message>
        <source>Az</source>
        <translation>Az</translation>
    </message>
    <message>
        <source>Pic</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Sort by this column (Ctrl+%1)</source>
        <translation>Nach dieser Spalte sortieren (Strg+%1)</translation>
    </message>
    <message>
        <source>Picture of %1</source>
        <translation>Bild von %1</translation>
    </message>
</context>
<context>
    <name>OnAirSession</name>
    <message numerus="yes">
        <source>%n further station(s) are not shown.</source>
        <translation>
            <numerusform>%n weitere Station wird nicht gezeigt.</numerusform>
            <numerusform>%n weitere Stationen werden nicht gezeigt.</numerusform>
        </translation>
    </message>
    <message>
        <source>The end of a list that is too long was not read.</source>
        <translation>Das Ende einer zu langen Liste wurde nicht gelesen.</translation>
    </message>
</context>
<context>
    <name>PictureActions</name>
    <message>
        <source>This picture cannot be copied: it cannot be decoded.</source>
        <translation>Dieses Bild kann nicht kopiert werden: Es lässt sich nicht dekodieren.</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <translation>Gespeichert als %1</translation>
    </message>
    <message>
        <source>This file could not be written: %1</source>
        <translation>Diese Datei konnte nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <source>There is no program for mail. The picture is on the clipboard.</source>
        <translation>Es gibt kein Programm für E-Mail. Das Bild ist in der Zwischenablage.</translation>
    </message>
    <message>
        <source>The picture is on the clipboard.</source>
        <translation>Das Bild ist in der Zwischenablage.</translation>
    </message>
    <message>
        <source>%1 of %2 pictures have been saved</source>
        <translation>%1 von %2 Bildern gespeichert</translation>
    </message>
</context>
<context>
    <name>PictureTransfer</name>
    <message>
        <source>This picture cannot be pasted: it cannot be decoded.</source>
        <translation>Dieses Bild kann nicht eingefügt werden: Es lässt sich nicht dekodieren.</translation>
    </message>
</context>
<context>
    <name>PropagationMap</name>
    <message>
        <source>The newest report is older than this period</source>
        <translation>Die neueste Meldung ist älter als dieser Zeitraum</translation>
    </message>
    <message numerus="yes">
        <source>%n older report(s) were left out.</source>
        <translation>
            <numerusform>%n ältere Meldung wurde weggelassen.</numerusform>
            <numerusform>%n ältere Meldungen wurden weggelassen.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SaveAllLine</name>
    <message>
        <source>%1 of %2 pictures have been saved</source>
        <translation>%1 von %2 Bildern gespeichert</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
</context>
<context>
    <name>SaveLine</name>
    <message>
        <source>%1 could not be written. What you have entered is still here.</source>
        <translation>%1 konnte nicht geschrieben werden. Ihre Eingaben sind noch da.</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Schließen, ohne zu speichern</translation>
    </message>
</context>
<context>
    <name>SetupWindows</name>
    <message>
        <source>The files have been copied to %1</source>
        <translation>Die Dateien wurden kopiert nach %1</translation>
    </message>
    <message>
        <source>The backup is not complete. These files could not be written:</source>
        <translation>Die Sicherung ist nicht vollständig. Diese Dateien konnten nicht geschrieben werden:</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und %n weitere</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>The help could not be opened: %1</source>
        <translation>Die Hilfe konnte nicht geöffnet werden: %1</translation>
    </message>
</context>
<context>
    <name>SignInPage</name>
    <message>
        <source>The window for web pages could not be opened.</source>
        <translation>Das Fenster für Webseiten konnte nicht geöffnet werden.</translation>
    </message>
</context>
<context>
    <name>SignInSession</name>
    <message>
        <source>Sign in to %1</source>
        <translation>Bei %1 anmelden</translation>
    </message>
    <message>
        <source>Sign out of %1</source>
        <translation>Bei %1 abmelden</translation>
    </message>
</context>
<context>
    <name>SiteForm</name>
    <message>
        <source>Keep, whatever the server&apos;s list says</source>
        <translation>Behalten, was auch immer die Liste des Servers sagt</translation>
    </message>
    <message>
        <source>Looking at the address ...</source>
        <translation>Die Adresse wird geprüft ...</translation>
    </message>
    <message>
        <source>Picture found, %1x%2.</source>
        <translation>Bild gefunden, %1x%2.</translation>
    </message>
    <message>
        <source>It answers, but with no picture.</source>
        <translation>Es kommt eine Antwort, aber kein Bild.</translation>
    </message>
    <message>
        <source>Nobody answers at this address.</source>
        <translation>Unter dieser Adresse antwortet niemand.</translation>
    </message>
    <message>
        <source>This is no address of the web (http or https).</source>
        <translation>Das ist keine Webadresse (http oder https).</translation>
    </message>
    <message>
        <source>It is polled only if it ends in image1.</source>
        <translation>Abgefragt wird sie nur, wenn sie auf image1 endet.</translation>
    </message>
</context>
<context>
    <name>SitePicker</name>
    <message>
        <source>%1, changed, not saved</source>
        <translation>%1, geändert, nicht gespeichert</translation>
    </message>
    <message>
        <source>Search by call or address</source>
        <translation>Nach Rufzeichen oder Adresse suchen</translation>
    </message>
</context>
<context>
    <name>ThumbCell</name>
    <message>
        <source>stale</source>
        <translation>veraltet</translation>
    </message>
    <message>
        <source>marked for comparison</source>
        <translation>zum Vergleich markiert</translation>
    </message>
</context>
<context>
    <name>UndoLine</name>
    <message>
        <source>The page was compacted</source>
        <translation>Die Seite wurde zusammengerückt</translation>
    </message>
    <message>
        <source>%1 was removed from the page</source>
        <translation>%1 wurde von der Seite entfernt</translation>
    </message>
    <message>
        <source>All sites were removed from the page</source>
        <translation>Alle Stationen wurden von der Seite entfernt</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>%1 was removed from the list of sites</source>
        <translation>%1 wurde aus der Liste der Stationen entfernt</translation>
    </message>
    <message>
        <source>The list of sites was changed</source>
        <translation>Die Liste der Stationen wurde geändert</translation>
    </message>
    <message>
        <source>Sites added: %1, removed: %2</source>
        <translation>Stationen hinzugefügt: %1, entfernt: %2</translation>
    </message>
</context>
<context>
    <name>WebPage</name>
    <message>
        <source>Not opened: %1</source>
        <translation>Nicht geöffnet: %1</translation>
    </message>
    <message>
        <source>Pages get no files here.</source>
        <translation>Seiten bekommen hier keine Dateien.</translation>
    </message>
    <message>
        <source>Answered with no: %1</source>
        <translation>Mit Nein beantwortet: %1</translation>
    </message>
    <message>
        <source>Not answered: %1</source>
        <translation>Nicht beantwortet: %1</translation>
    </message>
    <message>
        <source>Refused, its certificate does not hold: %1</source>
        <translation>Abgelehnt, das Zertifikat gilt nicht: %1</translation>
    </message>
</context>
<context>
    <name>WebWindow</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Neu laden</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>Encrypted</source>
        <translation>Verschlüsselt</translation>
    </message>
    <message>
        <source>Not encrypted</source>
        <translation>Nicht verschlüsselt</translation>
    </message>
    <message>
        <source>Not trusted</source>
        <translation>Nicht vertrauenswürdig</translation>
    </message>
    <message>
        <source>Connection</source>
        <translation>Verbindung</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Meldung</translation>
    </message>
    <message>
        <source>The page has stopped. Reload shows it again.</source>
        <translation>Die Seite ist stehen geblieben. Neu laden zeigt sie wieder.</translation>
    </message>
</context>
<context>
    <name>frmMapPropagation</name>
    <message>
        <source>Band</source>
        <translation>Band</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Art</translation>
    </message>
</context>
<context>
    <name>frmStView</name>
    <message>
        <source>The page has stopped. F5 shows it again.</source>
        <translation>Die Seite wurde beendet. F5 zeigt sie wieder.</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Meldung</translation>
    </message>
</context>
<context>
    <name>frmWmp</name>
    <message>
        <source>The film does not begin.</source>
        <translation>Der Film beginnt nicht.</translation>
    </message>
    <message>
        <source>This film cannot be played: its file is gone, or too large.</source>
        <translation>Dieser Film kann nicht abgespielt werden: Seine Datei ist verschwunden oder zu groß.</translation>
    </message>
    <message>
        <source>Films are not played: this system has no sandbox for the player (no seccomp filters).</source>
        <translation>Filme werden nicht abgespielt: Dieses System hat keine Sandbox für den Player (keine seccomp-Filter).</translation>
    </message>
    <message>
        <source>Films of this kind cannot be played. What is missing: %1</source>
        <translation>Filme dieser Art können nicht abgespielt werden. Es fehlt: %1</translation>
    </message>
    <message>
        <source>This film cannot be played: it is damaged, or no film.</source>
        <translation>Dieser Film kann nicht abgespielt werden: Er ist beschädigt oder kein Film.</translation>
    </message>
    <message>
        <source>This film cannot be played. What may be missing: %1</source>
        <translation>Dieser Film kann nicht abgespielt werden. Vielleicht fehlt: %1</translation>
    </message>
    <message>
        <source>Film</source>
        <translation>Film</translation>
    </message>
    <message>
        <source>Open with the desktop&apos;s player</source>
        <translation>Mit dem Abspielprogramm des Desktops öffnen</translation>
    </message>
    <message>
        <source>There is no sound: this system has no device for it.</source>
        <translation>Es gibt keinen Ton: Dieses System hat kein Gerät dafür.</translation>
    </message>
    <message>
        <source>This film has no sound.</source>
        <translation>Dieser Film hat keinen Ton.</translation>
    </message>
</context>
</TS>
