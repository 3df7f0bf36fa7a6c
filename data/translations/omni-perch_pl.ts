<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl">
<context>
    <name>Backup</name>
    <message>
        <source>The folder cannot be made.</source>
        <translation>Nie można utworzyć folderu.</translation>
    </message>
</context>
<context>
    <name>BrowserPages</name>
    <message>
        <source>Not saved: %1</source>
        <translation>Nie zapisano: %1</translation>
    </message>
</context>
<context>
    <name>CallListModel</name>
    <message>
        <source>%1, edited</source>
        <translation>%1, zmieniony</translation>
    </message>
</context>
<context>
    <name>CamModel</name>
    <message>
        <source>on this page</source>
        <translation>na tej stronie</translation>
    </message>
</context>
<context>
    <name>CamWords</name>
    <message>
        <source>cam is being tested</source>
        <translation>kamera jest sprawdzana</translation>
    </message>
    <message>
        <source>cam answers</source>
        <translation>kamera odpowiada</translation>
    </message>
    <message>
        <source>cam does not answer</source>
        <translation>kamera nie odpowiada</translation>
    </message>
    <message>
        <source>no cam tested</source>
        <translation>brak sprawdzonej kamery</translation>
    </message>
</context>
<context>
    <name>CellGridView</name>
    <message>
        <source>Pictures are not decoded: this system has no sandbox for the decoder (no seccomp filters)</source>
        <translation>Obrazy nie są dekodowane: ten system nie ma piaskownicy dla dekodera (brak filtrów seccomp)</translation>
    </message>
</context>
<context>
    <name>CleanField</name>
    <message>
        <source>Cut: only %1 letters fit.</source>
        <translation>Skrócono: mieści się tylko %1 znaków.</translation>
    </message>
    <message>
        <source>* and line ends are left out.</source>
        <translation>* i końce wierszy są pomijane.</translation>
    </message>
    <message>
        <source>Line ends are left out.</source>
        <translation>Końce wierszy są pomijane.</translation>
    </message>
    <message>
        <source>Emoji and foreign letters are left out.</source>
        <translation>Emotikony i obce litery są pomijane.</translation>
    </message>
</context>
<context>
    <name>CompareWindow</name>
    <message>
        <source>Picture</source>
        <translation>Obraz</translation>
    </message>
    <message>
        <source>Comparison</source>
        <translation>Porównanie</translation>
    </message>
    <message>
        <source>This picture cannot be shown.</source>
        <translation>Nie można pokazać tego obrazu.</translation>
    </message>
</context>
<context>
    <name>CoordinateFetch</name>
    <message>
        <source>This is no callsign.</source>
        <translation>To nie jest znak wywoławczy.</translation>
    </message>
    <message>
        <source>%1 not found on %2</source>
        <translation>Nie znaleziono %1 w %2</translation>
    </message>
    <message>
        <source>* Coordinates not available from %1
    Derived from address or zipcode.</source>
        <translation>* Współrzędne niedostępne w %1
    Wyznaczone z adresu lub kodu pocztowego.</translation>
    </message>
</context>
<context>
    <name>EasyPalPaste</name>
    <message>
        <source>EasyPal did not come to the front. The picture is on the clipboard: press F7 in EasyPal.</source>
        <translation>Okno EasyPal nie pojawiło się na wierzchu. Obraz jest w schowku: naciśnij F7 w EasyPal.</translation>
    </message>
    <message>
        <source>The picture is on the clipboard. Press F7 in EasyPal to paste it.</source>
        <translation>Obraz jest w schowku. Naciśnij F7 w EasyPal, aby go wkleić.</translation>
    </message>
</context>
<context>
    <name>EmptyPage</name>
    <message>
        <source>No station stands on any page yet</source>
        <translation>Na żadnej stronie nie ma jeszcze stacji</translation>
    </message>
    <message>
        <source>The list of weather pictures is empty</source>
        <translation>Lista zdjęć pogody jest pusta</translation>
    </message>
    <message>
        <source>Your list has no sites. Get those of the author&apos;s list, or add one yourself.</source>
        <translation>Twoja lista nie ma stacji. Pobierz stacje z listy autora albo dodaj własną.</translation>
    </message>
    <message numerus="yes">
        <source>Your list has %n site(s). Open the site index and press the one that is to stand in the first place of this page.</source>
        <translation>
            <numerusform>Twoja lista ma %n stację. Otwórz spis stacji i naciśnij ją, aby stanęła na pierwszym miejscu tej strony.</numerusform>
            <numerusform>Twoja lista ma %n stacje. Otwórz spis stacji i naciśnij tę, która ma stać na pierwszym miejscu tej strony.</numerusform>
            <numerusform>Twoja lista ma %n stacji. Otwórz spis stacji i naciśnij tę, która ma stać na pierwszym miejscu tej strony.</numerusform>
        </translation>
    </message>
    <message>
        <source>Get the author&apos;s list</source>
        <translation>Pobierz listę autora</translation>
    </message>
    <message>
        <source>The author&apos;s server is not named in hosts.ini.</source>
        <translation>Serwera autora nie ma w hosts.ini.</translation>
    </message>
    <message>
        <source>Your callsign and location are set.</source>
        <translation>Znak i lokalizacja są ustawione.</translation>
    </message>
    <message>
        <source>Put the copy back</source>
        <translation>Przywróć kopię</translation>
    </message>
    <message numerus="yes">
        <source>There is a copy of %1 with %n site(s). Putting it back adds them to the list; nothing is removed.</source>
        <translation>
            <numerusform>Jest kopia z %1, która ma %n stację. Przywrócenie doda ją do listy; nic nie zostanie usunięte.</numerusform>
            <numerusform>Jest kopia z %1, która ma %n stacje. Przywrócenie doda je do listy; nic nie zostanie usunięte.</numerusform>
            <numerusform>Jest kopia z %1, która ma %n stacji. Przywrócenie doda je do listy; nic nie zostanie usunięte.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>They return to their places on %n page(s).</source>
        <translation>
            <numerusform>Wrócą na swoje miejsca na %n stronie.</numerusform>
            <numerusform>Wrócą na swoje miejsca na %n stronach.</numerusform>
            <numerusform>Wrócą na swoje miejsca na %n stronach.</numerusform>
        </translation>
    </message>
    <message>
        <source>These files could not be written: %1</source>
        <translation>Nie udało się zapisać tych plików: %1</translation>
    </message>
    <message>
        <source>The author&apos;s list is being fetched...</source>
        <translation>Trwa pobieranie listy autora…</translation>
    </message>
    <message>
        <source>The author&apos;s list could not be fetched.</source>
        <translation>Nie udało się pobrać listy autora.</translation>
    </message>
</context>
<context>
    <name>FetchGroup</name>
    <message>
        <source>%1 has %2, %3. What you have typed stays.</source>
        <translation>%1 podaje %2, %3. Wpisane wartości pozostają.</translation>
    </message>
</context>
<context>
    <name>FilmControls</name>
    <message>
        <source>Back</source>
        <translation>Wstecz</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Naprzód</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Wstrzymaj</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Odtwórz</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Spacja</translation>
    </message>
    <message>
        <source>Position in the film</source>
        <translation>Miejsce w filmie</translation>
    </message>
    <message>
        <source>Sound on</source>
        <translation>Włącz dźwięk</translation>
    </message>
    <message>
        <source>Sound off</source>
        <translation>Wyłącz dźwięk</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Głośność</translation>
    </message>
    <message>
        <source>Leave the full screen</source>
        <translation>Zamknij pełny ekran</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>Pełny ekran</translation>
    </message>
</context>
<context>
    <name>Form1</name>
    <message>
        <source>Automatic refresh rests because a picture was opened. It goes on after the next refresh or change of page.</source>
        <translation>Automatyczne odświeżanie jest wstrzymane, ponieważ otwarto obraz. Zostanie wznowione po następnym odświeżeniu lub zmianie strony.</translation>
    </message>
</context>
<context>
    <name>Form11</name>
    <message>
        <source>Without your position no distance can be told, and no map shows you.</source>
        <translation>Bez Twojej pozycji nie można podać odległości i żadna mapa Cię nie pokaże.</translation>
    </message>
    <message>
        <source>Not a callsign; your own callsign stays as it is.</source>
        <translation>To nie jest znak; Twój znak pozostaje bez zmian.</translation>
    </message>
</context>
<context>
    <name>Form12</name>
    <message>
        <source>Distance and direction</source>
        <translation>Odległość i kierunek</translation>
    </message>
</context>
<context>
    <name>Form13</name>
    <message>
        <source>Picture of %1</source>
        <translation>Zdjęcie %1</translation>
    </message>
</context>
<context>
    <name>Form15</name>
    <message>
        <source>Rows of pictures</source>
        <translation>Wiersze obrazów</translation>
    </message>
    <message>
        <source>%1 of %2 pictures</source>
        <translation>%1 z %2 obrazów</translation>
    </message>
</context>
<context>
    <name>Form18</name>
    <message>
        <source>Blocked text %1</source>
        <translation>Zablokowany tekst %1</translation>
    </message>
</context>
<context>
    <name>Form2</name>
    <message>
        <source>Picture</source>
        <translation>Obraz</translation>
    </message>
    <message>
        <source>The picture is being decoded …</source>
        <translation>Obraz jest dekodowany …</translation>
    </message>
    <message>
        <source>This picture cannot be shown: its file is gone, or damaged.</source>
        <translation>Nie można pokazać tego obrazu: jego plik zniknął lub jest uszkodzony.</translation>
    </message>
    <message>
        <source>Pictures are not decoded: this system has no sandbox for the decoder (no seccomp filters)</source>
        <translation>Obrazy nie są dekodowane: ten system nie ma piaskownicy dla dekodera (brak filtrów seccomp)</translation>
    </message>
    <message>
        <source>A film: Return plays it.</source>
        <translation>Film: Enter go odtwarza.</translation>
    </message>
</context>
<context>
    <name>Form21</name>
    <message>
        <source>Fits on the page</source>
        <translation>Mieści się na stronie</translation>
    </message>
    <message>
        <source>Larger than the page</source>
        <translation>Większy niż strona</translation>
    </message>
    <message>
        <source>Cancel the print</source>
        <translation>Anuluj drukowanie</translation>
    </message>
    <message>
        <source>Preview of the page</source>
        <translation>Podgląd strony</translation>
    </message>
    <message>
        <source>Waiting for the printer ...</source>
        <translation>Oczekiwanie na drukarkę ...</translation>
    </message>
    <message>
        <source>The picture is being read ...</source>
        <translation>Odczytywanie obrazu ...</translation>
    </message>
    <message>
        <source>Printing ...</source>
        <translation>Drukowanie ...</translation>
    </message>
    <message>
        <source>There is no printer.</source>
        <translation>Nie ma drukarki.</translation>
    </message>
    <message>
        <source>The picture has gone to the printer.</source>
        <translation>Obraz wysłano do drukarki.</translation>
    </message>
    <message>
        <source>Written: %1</source>
        <translation>Zapisano: %1</translation>
    </message>
    <message>
        <source>The print was cancelled.</source>
        <translation>Drukowanie anulowano.</translation>
    </message>
    <message>
        <source>This picture cannot be printed: it cannot be decoded.</source>
        <translation>Tego obrazu nie można wydrukować: nie da się go zdekodować.</translation>
    </message>
    <message>
        <source>The printer does not take the picture.</source>
        <translation>Drukarka nie przyjmuje obrazu.</translation>
    </message>
    <message>
        <source>This file could not be written: %1</source>
        <translation>Nie można było zapisać tego pliku: %1</translation>
    </message>
</context>
<context>
    <name>Form22</name>
    <message>
        <source>New version</source>
        <translation>Nowa wersja</translation>
    </message>
</context>
<context>
    <name>Form26</name>
    <message>
        <source>Edited, not saved: %1</source>
        <translation>Zmienione, niezapisane: %1</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Zapisz</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Odrzuć</translation>
    </message>
    <message>
        <source>%1 was deleted</source>
        <translation>Usunięto %1</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Cofnij</translation>
    </message>
    <message>
        <source>%1 is in the database already. Replace its record by what the boxes show?</source>
        <translation>%1 jest już w bazie. Zastąpić wpis tym, co pokazują pola?</translation>
    </message>
</context>
<context>
    <name>Form5</name>
    <message>
        <source>Close without saving</source>
        <translation>Zamknij bez zapisywania</translation>
    </message>
    <message>
        <source>Name of the page</source>
        <translation>Nazwa strony</translation>
    </message>
    <message>
        <source>These files could not be written: %1. The new names and places hold as long as the program runs; when it closes it tries again.</source>
        <translation>Nie udało się zapisać tych plików: %1. Nowe nazwy i miejsca obowiązują, dopóki program działa; przy zamykaniu spróbuje ponownie.</translation>
    </message>
    <message>
        <source>The pictures in this folder could not be moved, so nothing has been changed: %1</source>
        <translation>Nie udało się przenieść obrazów z tego folderu, więc nic nie zostało zmienione: %1</translation>
    </message>
</context>
<context>
    <name>Form6</name>
    <message>
        <source>Remove all</source>
        <translation>Usuń wszystkie</translation>
    </message>
    <message>
        <source>Keep all</source>
        <translation>Zachowaj wszystkie</translation>
    </message>
    <message>
        <source>The changes were not made, as these files could not be written:</source>
        <translation>Zmian nie wprowadzono, ponieważ nie można było zapisać tych plików:</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Zamknij bez zapisywania</translation>
    </message>
</context>
<context>
    <name>Form7</name>
    <message>
        <source>Save</source>
        <translation>Zapisz</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Odrzuć</translation>
    </message>
    <message>
        <source>This entry is changed and not saved yet.</source>
        <translation>Ten wpis został zmieniony i nie jest jeszcze zapisany.</translation>
    </message>
    <message>
        <source>Callsign and address must not be empty.</source>
        <translation>Znak i adres nie mogą być puste.</translation>
    </message>
    <message>
        <source>Entries with changes that are not saved: %1. Close all the same?</source>
        <translation>Wpisy z niezapisanymi zmianami: %1. Mimo to zamknąć?</translation>
    </message>
    <message>
        <source>Go back</source>
        <translation>Wróć</translation>
    </message>
</context>
<context>
    <name>MainUpdates</name>
    <message>
        <source>The sites have been changed, but their positions could not be written to the call database.</source>
        <translation>Stacje zostały zmienione, ale ich położeń nie udało się zapisać w bazie znaków.</translation>
    </message>
</context>
<context>
    <name>MapWindow</name>
    <message>
        <source>%1 cannot be read</source>
        <translation>Nie można odczytać %1</translation>
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
        <translation>%1° E</translation>
    </message>
</context>
<context>
    <name>MediaViews</name>
    <message>
        <source>Pages cannot be shown here: a part of the program (libomni_web.so) is missing.</source>
        <translation>Nie można tu pokazać stron: brakuje części programu (libomni_web.so).</translation>
    </message>
    <message>
        <source>Open in the browser</source>
        <translation>Otwórz w przeglądarce</translation>
    </message>
    <message>
        <source>Films cannot be played: a part of the program (omni-perch-player) is missing.</source>
        <translation>Nie można odtwarzać filmów: brakuje części programu (omni-perch-player).</translation>
    </message>
    <message>
        <source>The film could not be copied for the desktop&apos;s player.</source>
        <translation>Nie udało się skopiować filmu dla odtwarzacza pulpitu.</translation>
    </message>
    <message>
        <source>The desktop has no player for films.</source>
        <translation>Pulpit nie ma odtwarzacza filmów.</translation>
    </message>
    <message>
        <source>Open the film with the desktop&apos;s own player? It has no sandbox: a film that is made to do harm can do it there.</source>
        <translation>Otworzyć film w odtwarzaczu pulpitu? Nie ma on piaskownicy: film zrobiony po to, by szkodzić, może tam zaszkodzić.</translation>
    </message>
</context>
<context>
    <name>MenuStrip</name>
    <message>
        <source>More</source>
        <translation>Więcej</translation>
    </message>
    <message>
        <source>The author&apos;s list of sites has been compared</source>
        <translation>Lista stacji autora została porównana</translation>
    </message>
</context>
<context>
    <name>NotWrittenWords</name>
    <message>
        <source>%1 could not be written: is the disk full, or the folder read-only? Nothing has been changed; what you typed stays here.</source>
        <translation>Nie można zapisać %1: czy dysk jest pełny albo folder tylko do odczytu? Nic nie zmieniono; wpisany tekst pozostaje tutaj.</translation>
    </message>
</context>
<context>
    <name>OnAirModel</name>
    <message>
        <source>Call</source>
        <translation>Znak</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Emisja</translation>
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
        <translation>Foto</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Sort by this column (Ctrl+%1)</source>
        <translation>Sortuj według tej kolumny (Ctrl+%1)</translation>
    </message>
    <message>
        <source>Picture of %1</source>
        <translation>Zdjęcie %1</translation>
    </message>
</context>
<context>
    <name>OnAirSession</name>
    <message numerus="yes">
        <source>%n further station(s) are not shown.</source>
        <translation>
            <numerusform>Nie pokazano jeszcze %n stacji.</numerusform>
            <numerusform>Nie pokazano jeszcze %n stacji.</numerusform>
            <numerusform>Nie pokazano jeszcze %n stacji.</numerusform>
        </translation>
    </message>
    <message>
        <source>The end of a list that is too long was not read.</source>
        <translation>Końca zbyt długiej listy nie odczytano.</translation>
    </message>
</context>
<context>
    <name>PictureActions</name>
    <message>
        <source>This picture cannot be copied: it cannot be decoded.</source>
        <translation>Tego obrazu nie można skopiować: nie da się go zdekodować.</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <translation>Zapisano jako %1</translation>
    </message>
    <message>
        <source>This file could not be written: %1</source>
        <translation>Nie udało się zapisać tego pliku: %1</translation>
    </message>
    <message>
        <source>There is no program for mail. The picture is on the clipboard.</source>
        <translation>Nie ma programu pocztowego. Obraz jest w schowku.</translation>
    </message>
    <message>
        <source>The picture is on the clipboard.</source>
        <translation>Obraz jest w schowku.</translation>
    </message>
    <message>
        <source>%1 of %2 pictures have been saved</source>
        <translation>Zapisano obrazy: %1 z %2</translation>
    </message>
</context>
<context>
    <name>PictureTransfer</name>
    <message>
        <source>This picture cannot be pasted: it cannot be decoded.</source>
        <translation>Tego obrazu nie można wkleić: nie da się go zdekodować.</translation>
    </message>
</context>
<context>
    <name>PropagationMap</name>
    <message>
        <source>The newest report is older than this period</source>
        <translation>Najnowszy raport jest starszy niż ten okres</translation>
    </message>
    <message numerus="yes">
        <source>%n older report(s) were left out.</source>
        <translation>
            <numerusform>Pominięto %n starszy raport.</numerusform>
            <numerusform>Pominięto %n starsze raporty.</numerusform>
            <numerusform>Pominięto %n starszych raportów.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SaveAllLine</name>
    <message>
        <source>%1 of %2 pictures have been saved</source>
        <translation>Zapisano obrazy: %1 z %2</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Zatrzymaj</translation>
    </message>
</context>
<context>
    <name>SaveLine</name>
    <message>
        <source>%1 could not be written. What you have entered is still here.</source>
        <translation>Nie można było zapisać %1. Wpisane dane wciąż tu są.</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Spróbuj ponownie</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Zamknij bez zapisywania</translation>
    </message>
</context>
<context>
    <name>SetupWindows</name>
    <message>
        <source>The files have been copied to %1</source>
        <translation>Pliki skopiowano do %1</translation>
    </message>
    <message>
        <source>The backup is not complete. These files could not be written:</source>
        <translation>Kopia nie jest kompletna. Nie udało się zapisać tych plików:</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>i jeszcze %n</numerusform>
            <numerusform>i jeszcze %n</numerusform>
            <numerusform>i jeszcze %n</numerusform>
        </translation>
    </message>
    <message>
        <source>The help could not be opened: %1</source>
        <translation>Nie udało się otworzyć pomocy: %1</translation>
    </message>
</context>
<context>
    <name>SignInPage</name>
    <message>
        <source>The window for web pages could not be opened.</source>
        <translation>Nie można było otworzyć okna stron internetowych.</translation>
    </message>
</context>
<context>
    <name>SignInSession</name>
    <message>
        <source>Sign in to %1</source>
        <translation>Zaloguj się do %1</translation>
    </message>
    <message>
        <source>Sign out of %1</source>
        <translation>Wyloguj się z %1</translation>
    </message>
</context>
<context>
    <name>SiteForm</name>
    <message>
        <source>Keep, whatever the server&apos;s list says</source>
        <translation>Zachowaj, niezależnie od listy serwera</translation>
    </message>
    <message>
        <source>Looking at the address ...</source>
        <translation>Sprawdzanie adresu ...</translation>
    </message>
    <message>
        <source>Picture found, %1x%2.</source>
        <translation>Znaleziono obraz, %1x%2.</translation>
    </message>
    <message>
        <source>It answers, but with no picture.</source>
        <translation>Jest odpowiedź, ale bez obrazu.</translation>
    </message>
    <message>
        <source>Nobody answers at this address.</source>
        <translation>Pod tym adresem nikt nie odpowiada.</translation>
    </message>
    <message>
        <source>This is no address of the web (http or https).</source>
        <translation>To nie jest adres sieciowy (http lub https).</translation>
    </message>
    <message>
        <source>It is polled only if it ends in image1.</source>
        <translation>Jest odpytywany tylko wtedy, gdy kończy się na image1.</translation>
    </message>
</context>
<context>
    <name>SitePicker</name>
    <message>
        <source>%1, changed, not saved</source>
        <translation>%1, zmieniony, niezapisany</translation>
    </message>
    <message>
        <source>Search by call or address</source>
        <translation>Szukaj według znaku lub adresu</translation>
    </message>
</context>
<context>
    <name>ThumbCell</name>
    <message>
        <source>stale</source>
        <translation>nieaktualne</translation>
    </message>
    <message>
        <source>marked for comparison</source>
        <translation>zaznaczony do porównania</translation>
    </message>
</context>
<context>
    <name>UndoLine</name>
    <message>
        <source>The page was compacted</source>
        <translation>Strona została scalona</translation>
    </message>
    <message>
        <source>%1 was removed from the page</source>
        <translation>Usunięto %1 ze strony</translation>
    </message>
    <message>
        <source>All sites were removed from the page</source>
        <translation>Usunięto wszystkie stacje ze strony</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Cofnij</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>Nie można zapisać %1.</translation>
    </message>
    <message>
        <source>%1 was removed from the list of sites</source>
        <translation>Usunięto %1 z listy stacji</translation>
    </message>
    <message>
        <source>The list of sites was changed</source>
        <translation>Lista stacji została zmieniona</translation>
    </message>
    <message>
        <source>Sites added: %1, removed: %2</source>
        <translation>Dodane stacje: %1, usunięte: %2</translation>
    </message>
</context>
<context>
    <name>WebPage</name>
    <message>
        <source>Not opened: %1</source>
        <translation>Nie otwarto: %1</translation>
    </message>
    <message>
        <source>Pages get no files here.</source>
        <translation>Strony nie otrzymują tu plików.</translation>
    </message>
    <message>
        <source>Answered with no: %1</source>
        <translation>Odpowiedziano „nie”: %1</translation>
    </message>
    <message>
        <source>Not answered: %1</source>
        <translation>Bez odpowiedzi: %1</translation>
    </message>
    <message>
        <source>Refused, its certificate does not hold: %1</source>
        <translation>Odrzucono, certyfikat jest nieważny: %1</translation>
    </message>
</context>
<context>
    <name>WebWindow</name>
    <message>
        <source>Back</source>
        <translation>Wstecz</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Odśwież</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Wytnij</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopiuj</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Wklej</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Zaznacz wszystko</translation>
    </message>
    <message>
        <source>Encrypted</source>
        <translation>Szyfrowane</translation>
    </message>
    <message>
        <source>Not encrypted</source>
        <translation>Nieszyfrowane</translation>
    </message>
    <message>
        <source>Not trusted</source>
        <translation>Niezaufane</translation>
    </message>
    <message>
        <source>Connection</source>
        <translation>Połączenie</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adres</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Strona</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Komunikat</translation>
    </message>
    <message>
        <source>The page has stopped. Reload shows it again.</source>
        <translation>Strona przestała działać. Odśwież, aby ją znów zobaczyć.</translation>
    </message>
</context>
<context>
    <name>frmMapPropagation</name>
    <message>
        <source>Band</source>
        <translation>Pasmo</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Emisja</translation>
    </message>
</context>
<context>
    <name>frmStView</name>
    <message>
        <source>The page has stopped. F5 shows it again.</source>
        <translation>Strona została zatrzymana. F5 pokaże ją ponownie.</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Strona</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Komunikat</translation>
    </message>
</context>
<context>
    <name>frmWmp</name>
    <message>
        <source>The film does not begin.</source>
        <translation>Film się nie zaczyna.</translation>
    </message>
    <message>
        <source>This film cannot be played: its file is gone, or too large.</source>
        <translation>Nie można odtworzyć tego filmu: jego plik zniknął albo jest za duży.</translation>
    </message>
    <message>
        <source>Films are not played: this system has no sandbox for the player (no seccomp filters).</source>
        <translation>Filmy nie są odtwarzane: ten system nie ma piaskownicy dla odtwarzacza (brak filtrów seccomp).</translation>
    </message>
    <message>
        <source>Films of this kind cannot be played. What is missing: %1</source>
        <translation>Filmów tego rodzaju nie można odtwarzać. Brakuje: %1</translation>
    </message>
    <message>
        <source>This film cannot be played: it is damaged, or no film.</source>
        <translation>Nie można odtworzyć tego filmu: jest uszkodzony albo nie jest filmem.</translation>
    </message>
    <message>
        <source>This film cannot be played. What may be missing: %1</source>
        <translation>Nie można odtworzyć tego filmu. Być może brakuje: %1</translation>
    </message>
    <message>
        <source>Film</source>
        <translation>Film</translation>
    </message>
    <message>
        <source>Open with the desktop&apos;s player</source>
        <translation>Otwórz w odtwarzaczu pulpitu</translation>
    </message>
    <message>
        <source>There is no sound: this system has no device for it.</source>
        <translation>Brak dźwięku: ten system nie ma do tego urządzenia.</translation>
    </message>
    <message>
        <source>This film has no sound.</source>
        <translation>Ten film nie ma dźwięku.</translation>
    </message>
</context>
</TS>
