<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="nl">
<context>
    <name>Backup</name>
    <message>
        <source>The folder cannot be made.</source>
        <translation>De map kan niet worden gemaakt.</translation>
    </message>
</context>
<context>
    <name>BrowserPages</name>
    <message>
        <source>Not saved: %1</source>
        <translation>Niet opgeslagen: %1</translation>
    </message>
</context>
<context>
    <name>CallListModel</name>
    <message>
        <source>%1, edited</source>
        <translation>%1, gewijzigd</translation>
    </message>
</context>
<context>
    <name>CamModel</name>
    <message>
        <source>on this page</source>
        <translation>op deze pagina</translation>
    </message>
</context>
<context>
    <name>CamWords</name>
    <message>
        <source>cam is being tested</source>
        <translation>camera wordt getest</translation>
    </message>
    <message>
        <source>cam answers</source>
        <translation>camera antwoordt</translation>
    </message>
    <message>
        <source>cam does not answer</source>
        <translation>camera antwoordt niet</translation>
    </message>
    <message>
        <source>no cam tested</source>
        <translation>geen camera getest</translation>
    </message>
</context>
<context>
    <name>CellGridView</name>
    <message>
        <source>Pictures are not decoded: this system has no sandbox for the decoder (no seccomp filters)</source>
        <translation>Afbeeldingen worden niet gedecodeerd: dit systeem heeft geen sandbox voor de decoder (geen seccomp-filters)</translation>
    </message>
</context>
<context>
    <name>CleanField</name>
    <message>
        <source>Cut: only %1 letters fit.</source>
        <translation>Ingekort: er passen maar %1 tekens.</translation>
    </message>
    <message>
        <source>* and line ends are left out.</source>
        <translation>* en regeleinden worden weggelaten.</translation>
    </message>
    <message>
        <source>Line ends are left out.</source>
        <translation>Regeleinden worden weggelaten.</translation>
    </message>
    <message>
        <source>Emoji and foreign letters are left out.</source>
        <translation>Emoji&apos;s en vreemde letters worden weggelaten.</translation>
    </message>
</context>
<context>
    <name>CompareWindow</name>
    <message>
        <source>Picture</source>
        <translation>Beeld</translation>
    </message>
    <message>
        <source>Comparison</source>
        <translation>Vergelijking</translation>
    </message>
    <message>
        <source>This picture cannot be shown.</source>
        <translation>Dit beeld kan niet worden getoond.</translation>
    </message>
</context>
<context>
    <name>CoordinateFetch</name>
    <message>
        <source>This is no callsign.</source>
        <translation>Dit is geen roepnaam.</translation>
    </message>
    <message>
        <source>%1 not found on %2</source>
        <translation>%1 niet gevonden op %2</translation>
    </message>
    <message>
        <source>* Coordinates not available from %1
    Derived from address or zipcode.</source>
        <translation>* Coördinaten niet beschikbaar op %1
    Afgeleid van adres of postcode.</translation>
    </message>
</context>
<context>
    <name>EasyPalPaste</name>
    <message>
        <source>EasyPal did not come to the front. The picture is on the clipboard: press F7 in EasyPal.</source>
        <translation>EasyPal kwam niet naar voren. De afbeelding staat op het klembord: druk op F7 in EasyPal.</translation>
    </message>
    <message>
        <source>The picture is on the clipboard. Press F7 in EasyPal to paste it.</source>
        <translation>De afbeelding staat op het klembord. Druk op F7 in EasyPal om haar te plakken.</translation>
    </message>
</context>
<context>
    <name>EmptyPage</name>
    <message>
        <source>No station stands on any page yet</source>
        <translation>Er staat nog op geen enkele pagina een station</translation>
    </message>
    <message>
        <source>The list of weather pictures is empty</source>
        <translation>De lijst met weerplaatjes is leeg</translation>
    </message>
    <message>
        <source>Your list has no sites. Get those of the author&apos;s list, or add one yourself.</source>
        <translation>Uw lijst heeft geen sites. Haal die van de lijst van de auteur op, of voeg zelf een site toe.</translation>
    </message>
    <message numerus="yes">
        <source>Your list has %n site(s). Open the site index and press the one that is to stand in the first place of this page.</source>
        <translation>
            <numerusform>Uw lijst heeft %n site. Open de site-index en druk erop om hem op de eerste plaats van deze pagina te zetten.</numerusform>
            <numerusform>Uw lijst heeft %n sites. Open de site-index en druk op de site die op de eerste plaats van deze pagina moet staan.</numerusform>
        </translation>
    </message>
    <message>
        <source>Get the author&apos;s list</source>
        <translation>Lijst van de auteur ophalen</translation>
    </message>
    <message>
        <source>The author&apos;s server is not named in hosts.ini.</source>
        <translation>De server van de auteur staat niet in hosts.ini.</translation>
    </message>
    <message>
        <source>Your callsign and location are set.</source>
        <translation>Uw roepnaam en locatie zijn ingevuld.</translation>
    </message>
    <message>
        <source>Put the copy back</source>
        <translation>Kopie terugzetten</translation>
    </message>
    <message numerus="yes">
        <source>There is a copy of %1 with %n site(s). Putting it back adds them to the list; nothing is removed.</source>
        <translation>
            <numerusform>Er is een kopie van %1 met %n site. Terugzetten voegt die aan de lijst toe; er wordt niets verwijderd.</numerusform>
            <numerusform>Er is een kopie van %1 met %n sites. Terugzetten voegt die aan de lijst toe; er wordt niets verwijderd.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>They return to their places on %n page(s).</source>
        <translation>
            <numerusform>Ze komen terug op hun plaatsen op %n pagina.</numerusform>
            <numerusform>Ze komen terug op hun plaatsen op %n pagina&apos;s.</numerusform>
        </translation>
    </message>
    <message>
        <source>These files could not be written: %1</source>
        <translation>Deze bestanden konden niet worden geschreven: %1</translation>
    </message>
    <message>
        <source>The author&apos;s list is being fetched...</source>
        <translation>De lijst van de auteur wordt opgehaald…</translation>
    </message>
    <message>
        <source>The author&apos;s list could not be fetched.</source>
        <translation>De lijst van de auteur kon niet worden opgehaald.</translation>
    </message>
</context>
<context>
    <name>FetchGroup</name>
    <message>
        <source>%1 has %2, %3. What you have typed stays.</source>
        <translation>%1 geeft %2, %3. Wat u hebt getypt blijft staan.</translation>
    </message>
</context>
<context>
    <name>FilmControls</name>
    <message>
        <source>Back</source>
        <translation>Terug</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Vooruit</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pauze</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Afspelen</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Spatie</translation>
    </message>
    <message>
        <source>Position in the film</source>
        <translation>Plaats in de film</translation>
    </message>
    <message>
        <source>Sound on</source>
        <translation>Geluid aan</translation>
    </message>
    <message>
        <source>Sound off</source>
        <translation>Geluid uit</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Leave the full screen</source>
        <translation>Volledig scherm verlaten</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>Volledig scherm</translation>
    </message>
</context>
<context>
    <name>Form1</name>
    <message>
        <source>Automatic refresh rests because a picture was opened. It goes on after the next refresh or change of page.</source>
        <translation>Automatisch verversen rust omdat een beeld is geopend. Het gaat verder na de volgende verversing of paginawissel.</translation>
    </message>
</context>
<context>
    <name>Form11</name>
    <message>
        <source>Without your position no distance can be told, and no map shows you.</source>
        <translation>Zonder uw positie zijn er geen afstanden en toont geen kaart u.</translation>
    </message>
    <message>
        <source>Not a callsign; your own callsign stays as it is.</source>
        <translation>Geen roepnaam; uw eigen roepnaam blijft zoals hij is.</translation>
    </message>
</context>
<context>
    <name>Form12</name>
    <message>
        <source>Distance and direction</source>
        <translation>Afstand en richting</translation>
    </message>
</context>
<context>
    <name>Form13</name>
    <message>
        <source>Picture of %1</source>
        <translation>Foto van %1</translation>
    </message>
</context>
<context>
    <name>Form15</name>
    <message>
        <source>Rows of pictures</source>
        <translation>Rijen beelden</translation>
    </message>
    <message>
        <source>%1 of %2 pictures</source>
        <translation>%1 van %2 beelden</translation>
    </message>
</context>
<context>
    <name>Form18</name>
    <message>
        <source>Blocked text %1</source>
        <translation>Geblokkeerde tekst %1</translation>
    </message>
</context>
<context>
    <name>Form2</name>
    <message>
        <source>Picture</source>
        <translation>Beeld</translation>
    </message>
    <message>
        <source>The picture is being decoded …</source>
        <translation>Het beeld wordt gedecodeerd …</translation>
    </message>
    <message>
        <source>This picture cannot be shown: its file is gone, or damaged.</source>
        <translation>Dit beeld kan niet worden getoond: het bestand is weg of beschadigd.</translation>
    </message>
    <message>
        <source>Pictures are not decoded: this system has no sandbox for the decoder (no seccomp filters)</source>
        <translation>Afbeeldingen worden niet gedecodeerd: dit systeem heeft geen sandbox voor de decoder (geen seccomp-filters)</translation>
    </message>
    <message>
        <source>A film: Return plays it.</source>
        <translation>Een film: Enter speelt hem af.</translation>
    </message>
</context>
<context>
    <name>Form21</name>
    <message>
        <source>Fits on the page</source>
        <translation>Past op de pagina</translation>
    </message>
    <message>
        <source>Larger than the page</source>
        <translation>Groter dan de pagina</translation>
    </message>
    <message>
        <source>Cancel the print</source>
        <translation>Afdrukken annuleren</translation>
    </message>
    <message>
        <source>Preview of the page</source>
        <translation>Voorbeeld van de pagina</translation>
    </message>
    <message>
        <source>Waiting for the printer ...</source>
        <translation>Wachten op de printer ...</translation>
    </message>
    <message>
        <source>The picture is being read ...</source>
        <translation>De afbeelding wordt gelezen ...</translation>
    </message>
    <message>
        <source>Printing ...</source>
        <translation>Bezig met afdrukken ...</translation>
    </message>
    <message>
        <source>There is no printer.</source>
        <translation>Er is geen printer.</translation>
    </message>
    <message>
        <source>The picture has gone to the printer.</source>
        <translation>De afbeelding is naar de printer gestuurd.</translation>
    </message>
    <message>
        <source>Written: %1</source>
        <translation>Geschreven: %1</translation>
    </message>
    <message>
        <source>The print was cancelled.</source>
        <translation>Het afdrukken is geannuleerd.</translation>
    </message>
    <message>
        <source>This picture cannot be printed: it cannot be decoded.</source>
        <translation>Deze afbeelding kan niet worden afgedrukt: ze kan niet worden gedecodeerd.</translation>
    </message>
    <message>
        <source>The printer does not take the picture.</source>
        <translation>De printer neemt de afbeelding niet aan.</translation>
    </message>
    <message>
        <source>This file could not be written: %1</source>
        <translation>Dit bestand kon niet worden geschreven: %1</translation>
    </message>
</context>
<context>
    <name>Form22</name>
    <message>
        <source>New version</source>
        <translation>Nieuwe versie</translation>
    </message>
</context>
<context>
    <name>Form26</name>
    <message>
        <source>Edited, not saved: %1</source>
        <translation>Gewijzigd, niet opgeslagen: %1</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Opslaan</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerpen</translation>
    </message>
    <message>
        <source>%1 was deleted</source>
        <translation>%1 is verwijderd</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Ongedaan maken</translation>
    </message>
    <message>
        <source>%1 is in the database already. Replace its record by what the boxes show?</source>
        <translation>%1 staat al in de database. Het record vervangen door wat de velden tonen?</translation>
    </message>
</context>
<context>
    <name>Form5</name>
    <message>
        <source>Close without saving</source>
        <translation>Sluiten zonder opslaan</translation>
    </message>
    <message>
        <source>Name of the page</source>
        <translation>Naam van de pagina</translation>
    </message>
    <message>
        <source>These files could not be written: %1. The new names and places hold as long as the program runs; when it closes it tries again.</source>
        <translation>Deze bestanden konden niet worden geschreven: %1. De nieuwe namen en plaatsen gelden zolang het programma loopt; bij het sluiten probeert het dat opnieuw.</translation>
    </message>
    <message>
        <source>The pictures in this folder could not be moved, so nothing has been changed: %1</source>
        <translation>De afbeeldingen in deze map konden niet worden verplaatst, dus er is niets gewijzigd: %1</translation>
    </message>
</context>
<context>
    <name>Form6</name>
    <message>
        <source>Remove all</source>
        <translation>Alle verwijderen</translation>
    </message>
    <message>
        <source>Keep all</source>
        <translation>Alle behouden</translation>
    </message>
    <message>
        <source>The changes were not made, as these files could not be written:</source>
        <translation>De wijzigingen zijn niet aangebracht, omdat deze bestanden niet konden worden geschreven:</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Sluiten zonder opslaan</translation>
    </message>
</context>
<context>
    <name>Form7</name>
    <message>
        <source>Save</source>
        <translation>Opslaan</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerpen</translation>
    </message>
    <message>
        <source>This entry is changed and not saved yet.</source>
        <translation>Dit item is gewijzigd en nog niet opgeslagen.</translation>
    </message>
    <message>
        <source>Callsign and address must not be empty.</source>
        <translation>Roepnaam en adres mogen niet leeg zijn.</translation>
    </message>
    <message>
        <source>Entries with changes that are not saved: %1. Close all the same?</source>
        <translation>Items met niet opgeslagen wijzigingen: %1. Toch sluiten?</translation>
    </message>
    <message>
        <source>Go back</source>
        <translation>Terug</translation>
    </message>
</context>
<context>
    <name>MainUpdates</name>
    <message>
        <source>The sites have been changed, but their positions could not be written to the call database.</source>
        <translation>De stations zijn gewijzigd, maar hun posities konden niet in de roepnamendatabase worden geschreven.</translation>
    </message>
</context>
<context>
    <name>MapWindow</name>
    <message>
        <source>%1 cannot be read</source>
        <translation>%1 kan niet worden gelezen</translation>
    </message>
    <message>
        <source>%1° S</source>
        <translation>%1° Z</translation>
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
        <translation>Pagina’s kunnen hier niet worden getoond: een deel van het programma (libomni_web.so) ontbreekt.</translation>
    </message>
    <message>
        <source>Open in the browser</source>
        <translation>In de browser openen</translation>
    </message>
    <message>
        <source>Films cannot be played: a part of the program (omni-perch-player) is missing.</source>
        <translation>Films kunnen niet worden afgespeeld: een deel van het programma (omni-perch-player) ontbreekt.</translation>
    </message>
    <message>
        <source>The film could not be copied for the desktop&apos;s player.</source>
        <translation>De film kon niet voor de speler van het bureaublad worden gekopieerd.</translation>
    </message>
    <message>
        <source>The desktop has no player for films.</source>
        <translation>Het bureaublad heeft geen speler voor films.</translation>
    </message>
    <message>
        <source>Open the film with the desktop&apos;s own player? It has no sandbox: a film that is made to do harm can do it there.</source>
        <translation>De film openen met de speler van het bureaublad? Die heeft geen sandbox: een film die is gemaakt om schade aan te richten, kan dat daar doen.</translation>
    </message>
</context>
<context>
    <name>MenuStrip</name>
    <message>
        <source>More</source>
        <translation>Meer</translation>
    </message>
    <message>
        <source>The author&apos;s list of sites has been compared</source>
        <translation>De stationslijst van de auteur is vergeleken</translation>
    </message>
</context>
<context>
    <name>NotWrittenWords</name>
    <message>
        <source>%1 could not be written: is the disk full, or the folder read-only? Nothing has been changed; what you typed stays here.</source>
        <translation>%1 kon niet worden geschreven: is de schijf vol of de map alleen-lezen? Er is niets gewijzigd; wat u hebt getypt, blijft hier staan.</translation>
    </message>
</context>
<context>
    <name>OnAirModel</name>
    <message>
        <source>Call</source>
        <translation>Roepnaam</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Mode</translation>
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
        <translation>Op deze kolom sorteren (Ctrl+%1)</translation>
    </message>
    <message>
        <source>Picture of %1</source>
        <translation>Foto van %1</translation>
    </message>
</context>
<context>
    <name>OnAirSession</name>
    <message numerus="yes">
        <source>%n further station(s) are not shown.</source>
        <translation>
            <numerusform>%n verder station wordt niet getoond.</numerusform>
            <numerusform>%n verdere stations worden niet getoond.</numerusform>
        </translation>
    </message>
    <message>
        <source>The end of a list that is too long was not read.</source>
        <translation>Het einde van een te lange lijst is niet gelezen.</translation>
    </message>
</context>
<context>
    <name>PictureActions</name>
    <message>
        <source>This picture cannot be copied: it cannot be decoded.</source>
        <translation>Deze afbeelding kan niet worden gekopieerd: ze kan niet worden gedecodeerd.</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <translation>Opgeslagen als %1</translation>
    </message>
    <message>
        <source>This file could not be written: %1</source>
        <translation>Dit bestand kon niet worden geschreven: %1</translation>
    </message>
    <message>
        <source>There is no program for mail. The picture is on the clipboard.</source>
        <translation>Er is geen e-mailprogramma. De afbeelding staat op het klembord.</translation>
    </message>
    <message>
        <source>The picture is on the clipboard.</source>
        <translation>De afbeelding staat op het klembord.</translation>
    </message>
    <message>
        <source>%1 of %2 pictures have been saved</source>
        <translation>%1 van %2 afbeeldingen opgeslagen</translation>
    </message>
</context>
<context>
    <name>PictureTransfer</name>
    <message>
        <source>This picture cannot be pasted: it cannot be decoded.</source>
        <translation>Deze afbeelding kan niet worden geplakt: ze kan niet worden gedecodeerd.</translation>
    </message>
</context>
<context>
    <name>PropagationMap</name>
    <message>
        <source>The newest report is older than this period</source>
        <translation>De nieuwste melding is ouder dan deze periode</translation>
    </message>
    <message numerus="yes">
        <source>%n older report(s) were left out.</source>
        <translation>
            <numerusform>%n oudere melding is weggelaten.</numerusform>
            <numerusform>%n oudere meldingen zijn weggelaten.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SaveAllLine</name>
    <message>
        <source>%1 of %2 pictures have been saved</source>
        <translation>%1 van %2 afbeeldingen opgeslagen</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stoppen</translation>
    </message>
</context>
<context>
    <name>SaveLine</name>
    <message>
        <source>%1 could not be written. What you have entered is still here.</source>
        <translation>%1 kon niet worden geschreven. Wat u hebt ingevoerd staat er nog.</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Opnieuw proberen</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Sluiten zonder opslaan</translation>
    </message>
</context>
<context>
    <name>SetupWindows</name>
    <message>
        <source>The files have been copied to %1</source>
        <translation>De bestanden zijn gekopieerd naar %1</translation>
    </message>
    <message>
        <source>The backup is not complete. These files could not be written:</source>
        <translation>De kopie is niet volledig. Deze bestanden konden niet worden geschreven:</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>en nog %n</numerusform>
            <numerusform>en nog %n</numerusform>
        </translation>
    </message>
    <message>
        <source>The help could not be opened: %1</source>
        <translation>De hulp kon niet worden geopend: %1</translation>
    </message>
</context>
<context>
    <name>SignInPage</name>
    <message>
        <source>The window for web pages could not be opened.</source>
        <translation>Het venster voor webpagina&apos;s kon niet worden geopend.</translation>
    </message>
</context>
<context>
    <name>SignInSession</name>
    <message>
        <source>Sign in to %1</source>
        <translation>Aanmelden bij %1</translation>
    </message>
    <message>
        <source>Sign out of %1</source>
        <translation>Afmelden bij %1</translation>
    </message>
</context>
<context>
    <name>SiteForm</name>
    <message>
        <source>Keep, whatever the server&apos;s list says</source>
        <translation>Behouden, wat de lijst van de server ook zegt</translation>
    </message>
    <message>
        <source>Looking at the address ...</source>
        <translation>Het adres wordt bekeken ...</translation>
    </message>
    <message>
        <source>Picture found, %1x%2.</source>
        <translation>Afbeelding gevonden, %1x%2.</translation>
    </message>
    <message>
        <source>It answers, but with no picture.</source>
        <translation>Er komt antwoord, maar geen afbeelding.</translation>
    </message>
    <message>
        <source>Nobody answers at this address.</source>
        <translation>Op dit adres antwoordt niemand.</translation>
    </message>
    <message>
        <source>This is no address of the web (http or https).</source>
        <translation>Dit is geen webadres (http of https).</translation>
    </message>
    <message>
        <source>It is polled only if it ends in image1.</source>
        <translation>Het wordt alleen opgevraagd als het op image1 eindigt.</translation>
    </message>
</context>
<context>
    <name>SitePicker</name>
    <message>
        <source>%1, changed, not saved</source>
        <translation>%1, gewijzigd, niet opgeslagen</translation>
    </message>
    <message>
        <source>Search by call or address</source>
        <translation>Zoeken op roepnaam of adres</translation>
    </message>
</context>
<context>
    <name>ThumbCell</name>
    <message>
        <source>stale</source>
        <translation>verouderd</translation>
    </message>
    <message>
        <source>marked for comparison</source>
        <translation>gemarkeerd om te vergelijken</translation>
    </message>
</context>
<context>
    <name>UndoLine</name>
    <message>
        <source>The page was compacted</source>
        <translation>De pagina is aaneengesloten</translation>
    </message>
    <message>
        <source>%1 was removed from the page</source>
        <translation>%1 is van de pagina verwijderd</translation>
    </message>
    <message>
        <source>All sites were removed from the page</source>
        <translation>Alle stations zijn van de pagina verwijderd</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Ongedaan maken</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 kon niet worden geschreven.</translation>
    </message>
    <message>
        <source>%1 was removed from the list of sites</source>
        <translation>%1 is uit de lijst van stations verwijderd</translation>
    </message>
    <message>
        <source>The list of sites was changed</source>
        <translation>De lijst van stations is gewijzigd</translation>
    </message>
    <message>
        <source>Sites added: %1, removed: %2</source>
        <translation>Stations toegevoegd: %1, verwijderd: %2</translation>
    </message>
</context>
<context>
    <name>WebPage</name>
    <message>
        <source>Not opened: %1</source>
        <translation>Niet geopend: %1</translation>
    </message>
    <message>
        <source>Pages get no files here.</source>
        <translation>Pagina&apos;s krijgen hier geen bestanden.</translation>
    </message>
    <message>
        <source>Answered with no: %1</source>
        <translation>Met nee beantwoord: %1</translation>
    </message>
    <message>
        <source>Not answered: %1</source>
        <translation>Niet beantwoord: %1</translation>
    </message>
    <message>
        <source>Refused, its certificate does not hold: %1</source>
        <translation>Geweigerd, het certificaat deugt niet: %1</translation>
    </message>
</context>
<context>
    <name>WebWindow</name>
    <message>
        <source>Back</source>
        <translation>Terug</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Vernieuwen</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Knippen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopiëren</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Plakken</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Alles selecteren</translation>
    </message>
    <message>
        <source>Encrypted</source>
        <translation>Versleuteld</translation>
    </message>
    <message>
        <source>Not encrypted</source>
        <translation>Niet versleuteld</translation>
    </message>
    <message>
        <source>Not trusted</source>
        <translation>Niet vertrouwd</translation>
    </message>
    <message>
        <source>Connection</source>
        <translation>Verbinding</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adres</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Pagina</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Melding</translation>
    </message>
    <message>
        <source>The page has stopped. Reload shows it again.</source>
        <translation>De pagina is gestopt. Vernieuwen toont haar weer.</translation>
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
        <translation>Mode</translation>
    </message>
</context>
<context>
    <name>frmStView</name>
    <message>
        <source>The page has stopped. F5 shows it again.</source>
        <translation>De pagina is gestopt. F5 toont haar opnieuw.</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Pagina</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Melding</translation>
    </message>
</context>
<context>
    <name>frmWmp</name>
    <message>
        <source>The film does not begin.</source>
        <translation>De film begint niet.</translation>
    </message>
    <message>
        <source>This film cannot be played: its file is gone, or too large.</source>
        <translation>Deze film kan niet worden afgespeeld: het bestand is weg of te groot.</translation>
    </message>
    <message>
        <source>Films are not played: this system has no sandbox for the player (no seccomp filters).</source>
        <translation>Films worden niet afgespeeld: dit systeem heeft geen sandbox voor de speler (geen seccomp-filters).</translation>
    </message>
    <message>
        <source>Films of this kind cannot be played. What is missing: %1</source>
        <translation>Films van deze soort kunnen niet worden afgespeeld. Er ontbreekt: %1</translation>
    </message>
    <message>
        <source>This film cannot be played: it is damaged, or no film.</source>
        <translation>Deze film kan niet worden afgespeeld: hij is beschadigd of geen film.</translation>
    </message>
    <message>
        <source>This film cannot be played. What may be missing: %1</source>
        <translation>Deze film kan niet worden afgespeeld. Misschien ontbreekt: %1</translation>
    </message>
    <message>
        <source>Film</source>
        <translation>Film</translation>
    </message>
    <message>
        <source>Open with the desktop&apos;s player</source>
        <translation>Met de speler van het bureaublad openen</translation>
    </message>
    <message>
        <source>There is no sound: this system has no device for it.</source>
        <translation>Er is geen geluid: dit systeem heeft er geen apparaat voor.</translation>
    </message>
    <message>
        <source>This film has no sound.</source>
        <translation>Deze film heeft geen geluid.</translation>
    </message>
</context>
</TS>
