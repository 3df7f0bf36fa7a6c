<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>Backup</name>
    <message>
        <source>The folder cannot be made.</source>
        <translation>Le dossier ne peut pas être créé.</translation>
    </message>
</context>
<context>
    <name>BrowserPages</name>
    <message>
        <source>Not saved: %1</source>
        <translation>Non enregistré : %1</translation>
    </message>
</context>
<context>
    <name>CallListModel</name>
    <message>
        <source>%1, edited</source>
        <translation>%1, modifié</translation>
    </message>
</context>
<context>
    <name>CamModel</name>
    <message>
        <source>on this page</source>
        <translation>sur cette page</translation>
    </message>
</context>
<context>
    <name>CamWords</name>
    <message>
        <source>cam is being tested</source>
        <translation>caméra en cours de test</translation>
    </message>
    <message>
        <source>cam answers</source>
        <translation>la caméra répond</translation>
    </message>
    <message>
        <source>cam does not answer</source>
        <translation>la caméra ne répond pas</translation>
    </message>
    <message>
        <source>no cam tested</source>
        <translation>aucune caméra testée</translation>
    </message>
</context>
<context>
    <name>CellGridView</name>
    <message>
        <source>Pictures are not decoded: this system has no sandbox for the decoder (no seccomp filters)</source>
        <translation>Les images ne sont pas décodées : ce système n&apos;a pas de bac à sable pour le décodeur (filtres seccomp absents)</translation>
    </message>
</context>
<context>
    <name>CleanField</name>
    <message>
        <source>Cut: only %1 letters fit.</source>
        <translation>Coupé : seuls %1 caractères tiennent.</translation>
    </message>
    <message>
        <source>* and line ends are left out.</source>
        <translation>Les * et les fins de ligne sont omis.</translation>
    </message>
    <message>
        <source>Line ends are left out.</source>
        <translation>Les fins de ligne sont omises.</translation>
    </message>
    <message>
        <source>Emoji and foreign letters are left out.</source>
        <translation>Les émojis et les lettres étrangères sont omis.</translation>
    </message>
</context>
<context>
    <name>CompareWindow</name>
    <message>
        <source>Picture</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Comparison</source>
        <translation>Comparaison</translation>
    </message>
    <message>
        <source>This picture cannot be shown.</source>
        <translation>Cette image ne peut pas être affichée.</translation>
    </message>
</context>
<context>
    <name>CoordinateFetch</name>
    <message>
        <source>This is no callsign.</source>
        <translation>Ce n&apos;est pas un indicatif.</translation>
    </message>
    <message>
        <source>%1 not found on %2</source>
        <translation>%1 introuvable sur %2</translation>
    </message>
    <message>
        <source>* Coordinates not available from %1
    Derived from address or zipcode.</source>
        <translation>* Coordonnées non disponibles sur %1
    Déduites de l&apos;adresse ou du code postal.</translation>
    </message>
</context>
<context>
    <name>EasyPalPaste</name>
    <message>
        <source>EasyPal did not come to the front. The picture is on the clipboard: press F7 in EasyPal.</source>
        <translation>EasyPal n&apos;est pas passé au premier plan. L&apos;image est dans le presse-papiers : appuyez sur F7 dans EasyPal.</translation>
    </message>
    <message>
        <source>The picture is on the clipboard. Press F7 in EasyPal to paste it.</source>
        <translation>L&apos;image est dans le presse-papiers. Appuyez sur F7 dans EasyPal pour la coller.</translation>
    </message>
</context>
<context>
    <name>EmptyPage</name>
    <message>
        <source>No station stands on any page yet</source>
        <translation>Aucune page n&apos;a encore de station</translation>
    </message>
    <message>
        <source>The list of weather pictures is empty</source>
        <translation>La liste des images météo est vide</translation>
    </message>
    <message>
        <source>Your list has no sites. Get those of the author&apos;s list, or add one yourself.</source>
        <translation>Votre liste n&apos;a aucun site. Prenez ceux de la liste de l&apos;auteur, ou ajoutez-en un vous-même.</translation>
    </message>
    <message numerus="yes">
        <source>Your list has %n site(s). Open the site index and press the one that is to stand in the first place of this page.</source>
        <translation>
            <numerusform>Votre liste a %n site. Ouvrez l&apos;index des sites et pressez-le pour le mettre à la première place de cette page.</numerusform>
            <numerusform>Votre liste a %n sites. Ouvrez l&apos;index des sites et pressez celui qui doit prendre la première place de cette page.</numerusform>
        </translation>
    </message>
    <message>
        <source>Get the author&apos;s list</source>
        <translation>Prendre la liste de l&apos;auteur</translation>
    </message>
    <message>
        <source>The author&apos;s server is not named in hosts.ini.</source>
        <translation>Le serveur de l&apos;auteur n&apos;est pas indiqué dans hosts.ini.</translation>
    </message>
    <message>
        <source>Your callsign and location are set.</source>
        <translation>Votre indicatif et votre position sont indiqués.</translation>
    </message>
    <message>
        <source>Put the copy back</source>
        <translation>Remettre la copie</translation>
    </message>
    <message numerus="yes">
        <source>There is a copy of %1 with %n site(s). Putting it back adds them to the list; nothing is removed.</source>
        <translation>
            <numerusform>Il y a une copie du %1 avec %n site. La remettre l&apos;ajoute à la liste ; rien n&apos;est supprimé.</numerusform>
            <numerusform>Il y a une copie du %1 avec %n sites. La remettre les ajoute à la liste ; rien n&apos;est supprimé.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>They return to their places on %n page(s).</source>
        <translation>
            <numerusform>Les sites retrouvent leurs places sur %n page.</numerusform>
            <numerusform>Les sites retrouvent leurs places sur %n pages.</numerusform>
        </translation>
    </message>
    <message>
        <source>These files could not be written: %1</source>
        <translation>Ces fichiers n&apos;ont pas pu être écrits : %1</translation>
    </message>
    <message>
        <source>The author&apos;s list is being fetched...</source>
        <translation>La liste de l&apos;auteur est en cours de lecture…</translation>
    </message>
    <message>
        <source>The author&apos;s list could not be fetched.</source>
        <translation>La liste de l&apos;auteur n&apos;a pas pu être lue.</translation>
    </message>
</context>
<context>
    <name>FetchGroup</name>
    <message>
        <source>%1 has %2, %3. What you have typed stays.</source>
        <translation>%1 indique %2, %3. Votre saisie est conservée.</translation>
    </message>
</context>
<context>
    <name>FilmControls</name>
    <message>
        <source>Back</source>
        <translation>Reculer</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Avancer</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Lire</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espace</translation>
    </message>
    <message>
        <source>Position in the film</source>
        <translation>Position dans le film</translation>
    </message>
    <message>
        <source>Sound on</source>
        <translation>Activer le son</translation>
    </message>
    <message>
        <source>Sound off</source>
        <translation>Couper le son</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Leave the full screen</source>
        <translation>Quitter le plein écran</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>Plein écran</translation>
    </message>
</context>
<context>
    <name>Form1</name>
    <message>
        <source>Automatic refresh rests because a picture was opened. It goes on after the next refresh or change of page.</source>
        <translation>L&apos;actualisation automatique est en pause car une image a été ouverte. Elle reprend après la prochaine actualisation ou un changement de page.</translation>
    </message>
</context>
<context>
    <name>Form11</name>
    <message>
        <source>Without your position no distance can be told, and no map shows you.</source>
        <translation>Sans votre position, aucune distance n&apos;est connue et aucune carte ne vous montre.</translation>
    </message>
    <message>
        <source>Not a callsign; your own callsign stays as it is.</source>
        <translation>Pas un indicatif ; le vôtre reste inchangé.</translation>
    </message>
</context>
<context>
    <name>Form12</name>
    <message>
        <source>Distance and direction</source>
        <translation>Distance et direction</translation>
    </message>
</context>
<context>
    <name>Form13</name>
    <message>
        <source>Picture of %1</source>
        <translation>Photo de %1</translation>
    </message>
</context>
<context>
    <name>Form15</name>
    <message>
        <source>Rows of pictures</source>
        <translation>Rangées d’images</translation>
    </message>
    <message>
        <source>%1 of %2 pictures</source>
        <translation>%1 images sur %2</translation>
    </message>
</context>
<context>
    <name>Form18</name>
    <message>
        <source>Blocked text %1</source>
        <translation>Texte bloqué %1</translation>
    </message>
</context>
<context>
    <name>Form2</name>
    <message>
        <source>Picture</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>The picture is being decoded …</source>
        <translation>Décodage de l&apos;image …</translation>
    </message>
    <message>
        <source>This picture cannot be shown: its file is gone, or damaged.</source>
        <translation>Cette image ne peut pas être affichée : son fichier a disparu ou est endommagé.</translation>
    </message>
    <message>
        <source>Pictures are not decoded: this system has no sandbox for the decoder (no seccomp filters)</source>
        <translation>Les images ne sont pas décodées : ce système n&apos;a pas de bac à sable pour le décodeur (filtres seccomp absents)</translation>
    </message>
    <message>
        <source>A film: Return plays it.</source>
        <translation>Un film : Entrée le lit.</translation>
    </message>
</context>
<context>
    <name>Form21</name>
    <message>
        <source>Fits on the page</source>
        <translation>Tient sur la page</translation>
    </message>
    <message>
        <source>Larger than the page</source>
        <translation>Plus grand que la page</translation>
    </message>
    <message>
        <source>Cancel the print</source>
        <translation>Annuler l&apos;impression</translation>
    </message>
    <message>
        <source>Preview of the page</source>
        <translation>Aperçu de la page</translation>
    </message>
    <message>
        <source>Waiting for the printer ...</source>
        <translation>En attente de l&apos;imprimante ...</translation>
    </message>
    <message>
        <source>The picture is being read ...</source>
        <translation>Lecture de l&apos;image ...</translation>
    </message>
    <message>
        <source>Printing ...</source>
        <translation>Impression en cours ...</translation>
    </message>
    <message>
        <source>There is no printer.</source>
        <translation>Il n&apos;y a pas d&apos;imprimante.</translation>
    </message>
    <message>
        <source>The picture has gone to the printer.</source>
        <translation>L&apos;image a été envoyée à l&apos;imprimante.</translation>
    </message>
    <message>
        <source>Written: %1</source>
        <translation>Écrit : %1</translation>
    </message>
    <message>
        <source>The print was cancelled.</source>
        <translation>L&apos;impression a été annulée.</translation>
    </message>
    <message>
        <source>This picture cannot be printed: it cannot be decoded.</source>
        <translation>Cette image ne peut pas être imprimée : elle ne peut pas être décodée.</translation>
    </message>
    <message>
        <source>The printer does not take the picture.</source>
        <translation>L&apos;imprimante n&apos;accepte pas l&apos;image.</translation>
    </message>
    <message>
        <source>This file could not be written: %1</source>
        <translation>Ce fichier n&apos;a pas pu être écrit : %1</translation>
    </message>
</context>
<context>
    <name>Form22</name>
    <message>
        <source>New version</source>
        <translation>Nouvelle version</translation>
    </message>
</context>
<context>
    <name>Form26</name>
    <message>
        <source>Edited, not saved: %1</source>
        <translation>Modifié, non enregistré : %1</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Abandonner</translation>
    </message>
    <message>
        <source>%1 was deleted</source>
        <translation>%1 a été supprimé</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>%1 is in the database already. Replace its record by what the boxes show?</source>
        <translation>%1 est déjà dans la base. Remplacer sa fiche par ce que montrent les champs ?</translation>
    </message>
</context>
<context>
    <name>Form5</name>
    <message>
        <source>Close without saving</source>
        <translation>Fermer sans enregistrer</translation>
    </message>
    <message>
        <source>Name of the page</source>
        <translation>Nom de la page</translation>
    </message>
    <message>
        <source>These files could not be written: %1. The new names and places hold as long as the program runs; when it closes it tries again.</source>
        <translation>Ces fichiers n&apos;ont pas pu être écrits : %1. Les nouveaux noms et places valent tant que le programme tourne ; il essaiera de nouveau en se fermant.</translation>
    </message>
    <message>
        <source>The pictures in this folder could not be moved, so nothing has been changed: %1</source>
        <translation>Les images de ce dossier n&apos;ont pas pu être déplacées, donc rien n&apos;a été modifié : %1</translation>
    </message>
</context>
<context>
    <name>Form6</name>
    <message>
        <source>Remove all</source>
        <translation>Tout supprimer</translation>
    </message>
    <message>
        <source>Keep all</source>
        <translation>Tout conserver</translation>
    </message>
    <message>
        <source>The changes were not made, as these files could not be written:</source>
        <translation>Les modifications n&apos;ont pas été faites, car ces fichiers n&apos;ont pas pu être écrits :</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Fermer sans enregistrer</translation>
    </message>
</context>
<context>
    <name>Form7</name>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Abandonner</translation>
    </message>
    <message>
        <source>This entry is changed and not saved yet.</source>
        <translation>Cette entrée est modifiée et pas encore enregistrée.</translation>
    </message>
    <message>
        <source>Callsign and address must not be empty.</source>
        <translation>L’indicatif et l’adresse ne doivent pas être vides.</translation>
    </message>
    <message>
        <source>Entries with changes that are not saved: %1. Close all the same?</source>
        <translation>Entrées modifiées non enregistrées : %1. Fermer quand même ?</translation>
    </message>
    <message>
        <source>Go back</source>
        <translation>Revenir</translation>
    </message>
</context>
<context>
    <name>MainUpdates</name>
    <message>
        <source>The sites have been changed, but their positions could not be written to the call database.</source>
        <translation>Les stations ont été modifiées, mais leurs positions n&apos;ont pas pu être écrites dans la base de données d&apos;indicatifs.</translation>
    </message>
</context>
<context>
    <name>MapWindow</name>
    <message>
        <source>%1 cannot be read</source>
        <translation>Impossible de lire %1</translation>
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
        <translation>%1° O</translation>
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
        <translation>Les pages ne peuvent pas être affichées ici : une partie du programme (libomni_web.so) manque.</translation>
    </message>
    <message>
        <source>Open in the browser</source>
        <translation>Ouvrir dans le navigateur</translation>
    </message>
    <message>
        <source>Films cannot be played: a part of the program (omni-perch-player) is missing.</source>
        <translation>Les films ne peuvent pas être lus : une partie du programme (omni-perch-player) manque.</translation>
    </message>
    <message>
        <source>The film could not be copied for the desktop&apos;s player.</source>
        <translation>Le film n’a pas pu être copié pour le lecteur du bureau.</translation>
    </message>
    <message>
        <source>The desktop has no player for films.</source>
        <translation>Le bureau n’a pas de lecteur de films.</translation>
    </message>
    <message>
        <source>Open the film with the desktop&apos;s own player? It has no sandbox: a film that is made to do harm can do it there.</source>
        <translation>Ouvrir le film avec le lecteur du bureau ? Il n’a pas de bac à sable : un film fait pour nuire peut y nuire.</translation>
    </message>
</context>
<context>
    <name>MenuStrip</name>
    <message>
        <source>More</source>
        <translation>Plus</translation>
    </message>
    <message>
        <source>The author&apos;s list of sites has been compared</source>
        <translation>La liste de stations de l&apos;auteur a été comparée</translation>
    </message>
</context>
<context>
    <name>NotWrittenWords</name>
    <message>
        <source>%1 could not be written: is the disk full, or the folder read-only? Nothing has been changed; what you typed stays here.</source>
        <translation>Impossible d’écrire %1 : le disque est-il plein, ou le dossier en lecture seule ? Rien n’a été modifié ; votre saisie reste ici.</translation>
    </message>
</context>
<context>
    <name>OnAirModel</name>
    <message>
        <source>Call</source>
        <translation>Indicatif</translation>
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
        <translation>Img</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Sort by this column (Ctrl+%1)</source>
        <translation>Trier par cette colonne (Ctrl+%1)</translation>
    </message>
    <message>
        <source>Picture of %1</source>
        <translation>Photo de %1</translation>
    </message>
</context>
<context>
    <name>OnAirSession</name>
    <message numerus="yes">
        <source>%n further station(s) are not shown.</source>
        <translation>
            <numerusform>%n autre station n&apos;est pas affichée.</numerusform>
            <numerusform>%n autres stations ne sont pas affichées.</numerusform>
        </translation>
    </message>
    <message>
        <source>The end of a list that is too long was not read.</source>
        <translation>La fin d&apos;une liste trop longue n&apos;a pas été lue.</translation>
    </message>
</context>
<context>
    <name>PictureActions</name>
    <message>
        <source>This picture cannot be copied: it cannot be decoded.</source>
        <translation>Cette image ne peut pas être copiée : elle ne peut pas être décodée.</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <translation>Enregistré sous %1</translation>
    </message>
    <message>
        <source>This file could not be written: %1</source>
        <translation>Ce fichier n&apos;a pas pu être écrit : %1</translation>
    </message>
    <message>
        <source>There is no program for mail. The picture is on the clipboard.</source>
        <translation>Il n&apos;y a pas de programme de messagerie. L&apos;image est dans le presse-papiers.</translation>
    </message>
    <message>
        <source>The picture is on the clipboard.</source>
        <translation>L&apos;image est dans le presse-papiers.</translation>
    </message>
    <message>
        <source>%1 of %2 pictures have been saved</source>
        <translation>%1 images enregistrées sur %2</translation>
    </message>
</context>
<context>
    <name>PictureTransfer</name>
    <message>
        <source>This picture cannot be pasted: it cannot be decoded.</source>
        <translation>Cette image ne peut pas être collée : elle ne peut pas être décodée.</translation>
    </message>
</context>
<context>
    <name>PropagationMap</name>
    <message>
        <source>The newest report is older than this period</source>
        <translation>Le rapport le plus récent est antérieur à cette période</translation>
    </message>
    <message numerus="yes">
        <source>%n older report(s) were left out.</source>
        <translation>
            <numerusform>%n rapport plus ancien a été omis.</numerusform>
            <numerusform>%n rapports plus anciens ont été omis.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SaveAllLine</name>
    <message>
        <source>%1 of %2 pictures have been saved</source>
        <translation>%1 images enregistrées sur %2</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
</context>
<context>
    <name>SaveLine</name>
    <message>
        <source>%1 could not be written. What you have entered is still here.</source>
        <translation>%1 n&apos;a pas pu être écrit. Votre saisie est toujours là.</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Fermer sans enregistrer</translation>
    </message>
</context>
<context>
    <name>SetupWindows</name>
    <message>
        <source>The files have been copied to %1</source>
        <translation>Les fichiers ont été copiés dans %1</translation>
    </message>
    <message>
        <source>The backup is not complete. These files could not be written:</source>
        <translation>La sauvegarde n&apos;est pas complète. Ces fichiers n&apos;ont pas pu être écrits :</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>et %n autre</numerusform>
            <numerusform>et %n autres</numerusform>
        </translation>
    </message>
    <message>
        <source>The help could not be opened: %1</source>
        <translation>L&apos;aide n&apos;a pas pu être ouverte : %1</translation>
    </message>
</context>
<context>
    <name>SignInPage</name>
    <message>
        <source>The window for web pages could not be opened.</source>
        <translation>La fenêtre des pages web n&apos;a pas pu être ouverte.</translation>
    </message>
</context>
<context>
    <name>SignInSession</name>
    <message>
        <source>Sign in to %1</source>
        <translation>Se connecter à %1</translation>
    </message>
    <message>
        <source>Sign out of %1</source>
        <translation>Se déconnecter de %1</translation>
    </message>
</context>
<context>
    <name>SiteForm</name>
    <message>
        <source>Keep, whatever the server&apos;s list says</source>
        <translation>Conserver, quoi que dise la liste du serveur</translation>
    </message>
    <message>
        <source>Looking at the address ...</source>
        <translation>Vérification de l’adresse ...</translation>
    </message>
    <message>
        <source>Picture found, %1x%2.</source>
        <translation>Image trouvée, %1x%2.</translation>
    </message>
    <message>
        <source>It answers, but with no picture.</source>
        <translation>Une réponse arrive, mais sans image.</translation>
    </message>
    <message>
        <source>Nobody answers at this address.</source>
        <translation>Personne ne répond à cette adresse.</translation>
    </message>
    <message>
        <source>This is no address of the web (http or https).</source>
        <translation>Ce n’est pas une adresse web (http ou https).</translation>
    </message>
    <message>
        <source>It is polled only if it ends in image1.</source>
        <translation>Elle n’est interrogée que si elle se termine par image1.</translation>
    </message>
</context>
<context>
    <name>SitePicker</name>
    <message>
        <source>%1, changed, not saved</source>
        <translation>%1, modifié, non enregistré</translation>
    </message>
    <message>
        <source>Search by call or address</source>
        <translation>Chercher par indicatif ou adresse</translation>
    </message>
</context>
<context>
    <name>ThumbCell</name>
    <message>
        <source>stale</source>
        <translation>périmée</translation>
    </message>
    <message>
        <source>marked for comparison</source>
        <translation>marquée pour la comparaison</translation>
    </message>
</context>
<context>
    <name>UndoLine</name>
    <message>
        <source>The page was compacted</source>
        <translation>La page a été compactée</translation>
    </message>
    <message>
        <source>%1 was removed from the page</source>
        <translation>%1 a été retiré de la page</translation>
    </message>
    <message>
        <source>All sites were removed from the page</source>
        <translation>Toutes les stations ont été retirées de la page</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>Impossible d’écrire %1.</translation>
    </message>
    <message>
        <source>%1 was removed from the list of sites</source>
        <translation>%1 a été retiré de la liste des stations</translation>
    </message>
    <message>
        <source>The list of sites was changed</source>
        <translation>La liste des stations a été modifiée</translation>
    </message>
    <message>
        <source>Sites added: %1, removed: %2</source>
        <translation>Stations ajoutées : %1, retirées : %2</translation>
    </message>
</context>
<context>
    <name>WebPage</name>
    <message>
        <source>Not opened: %1</source>
        <translation>Non ouvert : %1</translation>
    </message>
    <message>
        <source>Pages get no files here.</source>
        <translation>Les pages ne reçoivent aucun fichier ici.</translation>
    </message>
    <message>
        <source>Answered with no: %1</source>
        <translation>Réponse donnée : non. %1</translation>
    </message>
    <message>
        <source>Not answered: %1</source>
        <translation>Sans réponse : %1</translation>
    </message>
    <message>
        <source>Refused, its certificate does not hold: %1</source>
        <translation>Refusé, le certificat n&apos;est pas valable : %1</translation>
    </message>
</context>
<context>
    <name>WebWindow</name>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Actualiser</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Couper</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Tout sélectionner</translation>
    </message>
    <message>
        <source>Encrypted</source>
        <translation>Chiffré</translation>
    </message>
    <message>
        <source>Not encrypted</source>
        <translation>Non chiffré</translation>
    </message>
    <message>
        <source>Not trusted</source>
        <translation>Non fiable</translation>
    </message>
    <message>
        <source>Connection</source>
        <translation>Connexion</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Page</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Message</translation>
    </message>
    <message>
        <source>The page has stopped. Reload shows it again.</source>
        <translation>La page s&apos;est arrêtée. Actualiser l&apos;affiche de nouveau.</translation>
    </message>
</context>
<context>
    <name>frmMapPropagation</name>
    <message>
        <source>Band</source>
        <translation>Bande</translation>
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
        <translation>La page s’est arrêtée. F5 l’affiche à nouveau.</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Page</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Message</translation>
    </message>
</context>
<context>
    <name>frmWmp</name>
    <message>
        <source>The film does not begin.</source>
        <translation>Le film ne commence pas.</translation>
    </message>
    <message>
        <source>This film cannot be played: its file is gone, or too large.</source>
        <translation>Ce film ne peut pas être lu : son fichier a disparu ou est trop grand.</translation>
    </message>
    <message>
        <source>Films are not played: this system has no sandbox for the player (no seccomp filters).</source>
        <translation>Les films ne sont pas lus : ce système n’a pas de bac à sable pour le lecteur (pas de filtres seccomp).</translation>
    </message>
    <message>
        <source>Films of this kind cannot be played. What is missing: %1</source>
        <translation>Les films de ce type ne peuvent pas être lus. Il manque : %1</translation>
    </message>
    <message>
        <source>This film cannot be played: it is damaged, or no film.</source>
        <translation>Ce film ne peut pas être lu : il est endommagé ou n’en est pas un.</translation>
    </message>
    <message>
        <source>This film cannot be played. What may be missing: %1</source>
        <translation>Ce film ne peut pas être lu. Il manque peut-être : %1</translation>
    </message>
    <message>
        <source>Film</source>
        <translation>Film</translation>
    </message>
    <message>
        <source>Open with the desktop&apos;s player</source>
        <translation>Ouvrir avec le lecteur du bureau</translation>
    </message>
    <message>
        <source>There is no sound: this system has no device for it.</source>
        <translation>Il n’y a pas de son : ce système n’a pas de périphérique audio.</translation>
    </message>
    <message>
        <source>This film has no sound.</source>
        <translation>Ce film n’a pas de son.</translation>
    </message>
</context>
</TS>
