<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es">
<context>
    <name>Backup</name>
    <message>
        <source>The folder cannot be made.</source>
        <translation>No se puede crear la carpeta.</translation>
    </message>
</context>
<context>
    <name>BrowserPages</name>
    <message>
        <source>Not saved: %1</source>
        <translation>No guardado: %1</translation>
    </message>
</context>
<context>
    <name>CallListModel</name>
    <message>
        <source>%1, edited</source>
        <translation>%1, modificado</translation>
    </message>
</context>
<context>
    <name>CamModel</name>
    <message>
        <source>on this page</source>
        <translation>en esta página</translation>
    </message>
</context>
<context>
    <name>CamWords</name>
    <message>
        <source>cam is being tested</source>
        <translation>se está probando la cámara</translation>
    </message>
    <message>
        <source>cam answers</source>
        <translation>la cámara responde</translation>
    </message>
    <message>
        <source>cam does not answer</source>
        <translation>la cámara no responde</translation>
    </message>
    <message>
        <source>no cam tested</source>
        <translation>ninguna cámara probada</translation>
    </message>
</context>
<context>
    <name>CellGridView</name>
    <message>
        <source>Pictures are not decoded: this system has no sandbox for the decoder (no seccomp filters)</source>
        <translation>Las imágenes no se decodifican: este sistema no tiene un entorno aislado para el decodificador (faltan los filtros seccomp)</translation>
    </message>
</context>
<context>
    <name>CleanField</name>
    <message>
        <source>Cut: only %1 letters fit.</source>
        <translation>Recortado: solo caben %1 caracteres.</translation>
    </message>
    <message>
        <source>* and line ends are left out.</source>
        <translation>Se omiten * y los saltos de línea.</translation>
    </message>
    <message>
        <source>Line ends are left out.</source>
        <translation>Se omiten los saltos de línea.</translation>
    </message>
    <message>
        <source>Emoji and foreign letters are left out.</source>
        <translation>Se omiten los emojis y las letras extranjeras.</translation>
    </message>
</context>
<context>
    <name>CompareWindow</name>
    <message>
        <source>Picture</source>
        <translation>Imagen</translation>
    </message>
    <message>
        <source>Comparison</source>
        <translation>Comparación</translation>
    </message>
    <message>
        <source>This picture cannot be shown.</source>
        <translation>No se puede mostrar esta imagen.</translation>
    </message>
</context>
<context>
    <name>CoordinateFetch</name>
    <message>
        <source>This is no callsign.</source>
        <translation>Esto no es un indicativo.</translation>
    </message>
    <message>
        <source>%1 not found on %2</source>
        <translation>%1 no encontrado en %2</translation>
    </message>
    <message>
        <source>* Coordinates not available from %1
    Derived from address or zipcode.</source>
        <translation>* Coordenadas no disponibles en %1
    Deducidas de la dirección o del código postal.</translation>
    </message>
</context>
<context>
    <name>EasyPalPaste</name>
    <message>
        <source>EasyPal did not come to the front. The picture is on the clipboard: press F7 in EasyPal.</source>
        <translation>EasyPal no pasó al frente. La imagen está en el portapapeles: pulse F7 en EasyPal.</translation>
    </message>
    <message>
        <source>The picture is on the clipboard. Press F7 in EasyPal to paste it.</source>
        <translation>La imagen está en el portapapeles. Pulse F7 en EasyPal para pegarla.</translation>
    </message>
</context>
<context>
    <name>EmptyPage</name>
    <message>
        <source>No station stands on any page yet</source>
        <translation>Todavía no hay estaciones en ninguna página</translation>
    </message>
    <message>
        <source>The list of weather pictures is empty</source>
        <translation>La lista de imágenes del tiempo está vacía</translation>
    </message>
    <message>
        <source>Your list has no sites. Get those of the author&apos;s list, or add one yourself.</source>
        <translation>Su lista no tiene sitios. Obtenga los de la lista del autor o añada uno usted mismo.</translation>
    </message>
    <message numerus="yes">
        <source>Your list has %n site(s). Open the site index and press the one that is to stand in the first place of this page.</source>
        <translation>
            <numerusform>Su lista tiene %n sitio. Abra el índice de sitios y púlselo para ponerlo en el primer lugar de esta página.</numerusform>
            <numerusform>Su lista tiene %n sitios. Abra el índice de sitios y pulse el que deba ocupar el primer lugar de esta página.</numerusform>
        </translation>
    </message>
    <message>
        <source>Get the author&apos;s list</source>
        <translation>Obtener la lista del autor</translation>
    </message>
    <message>
        <source>The author&apos;s server is not named in hosts.ini.</source>
        <translation>El servidor del autor no figura en hosts.ini.</translation>
    </message>
    <message>
        <source>Your callsign and location are set.</source>
        <translation>Su indicativo y su ubicación ya están puestos.</translation>
    </message>
    <message>
        <source>Put the copy back</source>
        <translation>Recuperar la copia</translation>
    </message>
    <message numerus="yes">
        <source>There is a copy of %1 with %n site(s). Putting it back adds them to the list; nothing is removed.</source>
        <translation>
            <numerusform>Hay una copia del %1 con %n sitio. Al recuperarla se añade a la lista; no se elimina nada.</numerusform>
            <numerusform>Hay una copia del %1 con %n sitios. Al recuperarla se añaden a la lista; no se elimina nada.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>They return to their places on %n page(s).</source>
        <translation>
            <numerusform>Vuelven a sus lugares en %n página.</numerusform>
            <numerusform>Vuelven a sus lugares en %n páginas.</numerusform>
        </translation>
    </message>
    <message>
        <source>These files could not be written: %1</source>
        <translation>No se han podido escribir estos archivos: %1</translation>
    </message>
    <message>
        <source>The author&apos;s list is being fetched...</source>
        <translation>Obteniendo la lista del autor…</translation>
    </message>
    <message>
        <source>The author&apos;s list could not be fetched.</source>
        <translation>No se ha podido obtener la lista del autor.</translation>
    </message>
</context>
<context>
    <name>FetchGroup</name>
    <message>
        <source>%1 has %2, %3. What you have typed stays.</source>
        <translation>%1 indica %2, %3. Lo que ha escrito se conserva.</translation>
    </message>
</context>
<context>
    <name>FilmControls</name>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Adelante</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausa</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Reproducir</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espacio</translation>
    </message>
    <message>
        <source>Position in the film</source>
        <translation>Posición en la película</translation>
    </message>
    <message>
        <source>Sound on</source>
        <translation>Activar el sonido</translation>
    </message>
    <message>
        <source>Sound off</source>
        <translation>Silenciar</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volumen</translation>
    </message>
    <message>
        <source>Leave the full screen</source>
        <translation>Salir de la pantalla completa</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>Pantalla completa</translation>
    </message>
</context>
<context>
    <name>Form1</name>
    <message>
        <source>Automatic refresh rests because a picture was opened. It goes on after the next refresh or change of page.</source>
        <translation>La actualización automática descansa porque se abrió una imagen. Continúa tras la próxima actualización o cambio de página.</translation>
    </message>
</context>
<context>
    <name>Form11</name>
    <message>
        <source>Without your position no distance can be told, and no map shows you.</source>
        <translation>Sin su posición no hay distancias, y ningún mapa le muestra.</translation>
    </message>
    <message>
        <source>Not a callsign; your own callsign stays as it is.</source>
        <translation>No es un indicativo; el suyo se queda como está.</translation>
    </message>
</context>
<context>
    <name>Form12</name>
    <message>
        <source>Distance and direction</source>
        <translation>Distancia y dirección</translation>
    </message>
</context>
<context>
    <name>Form13</name>
    <message>
        <source>Picture of %1</source>
        <translation>Foto de %1</translation>
    </message>
</context>
<context>
    <name>Form15</name>
    <message>
        <source>Rows of pictures</source>
        <translation>Filas de imágenes</translation>
    </message>
    <message>
        <source>%1 of %2 pictures</source>
        <translation>%1 de %2 imágenes</translation>
    </message>
</context>
<context>
    <name>Form18</name>
    <message>
        <source>Blocked text %1</source>
        <translation>Texto bloqueado %1</translation>
    </message>
</context>
<context>
    <name>Form2</name>
    <message>
        <source>Picture</source>
        <translation>Imagen</translation>
    </message>
    <message>
        <source>The picture is being decoded …</source>
        <translation>Se está decodificando la imagen …</translation>
    </message>
    <message>
        <source>This picture cannot be shown: its file is gone, or damaged.</source>
        <translation>No se puede mostrar esta imagen: su archivo falta o está dañado.</translation>
    </message>
    <message>
        <source>Pictures are not decoded: this system has no sandbox for the decoder (no seccomp filters)</source>
        <translation>Las imágenes no se decodifican: este sistema no tiene un entorno aislado para el decodificador (faltan los filtros seccomp)</translation>
    </message>
    <message>
        <source>A film: Return plays it.</source>
        <translation>Una película: Intro la reproduce.</translation>
    </message>
</context>
<context>
    <name>Form21</name>
    <message>
        <source>Fits on the page</source>
        <translation>Cabe en la página</translation>
    </message>
    <message>
        <source>Larger than the page</source>
        <translation>Más grande que la página</translation>
    </message>
    <message>
        <source>Cancel the print</source>
        <translation>Cancelar la impresión</translation>
    </message>
    <message>
        <source>Preview of the page</source>
        <translation>Vista previa de la página</translation>
    </message>
    <message>
        <source>Waiting for the printer ...</source>
        <translation>Esperando a la impresora ...</translation>
    </message>
    <message>
        <source>The picture is being read ...</source>
        <translation>Leyendo la imagen ...</translation>
    </message>
    <message>
        <source>Printing ...</source>
        <translation>Imprimiendo ...</translation>
    </message>
    <message>
        <source>There is no printer.</source>
        <translation>No hay ninguna impresora.</translation>
    </message>
    <message>
        <source>The picture has gone to the printer.</source>
        <translation>La imagen se ha enviado a la impresora.</translation>
    </message>
    <message>
        <source>Written: %1</source>
        <translation>Escrito: %1</translation>
    </message>
    <message>
        <source>The print was cancelled.</source>
        <translation>Se ha cancelado la impresión.</translation>
    </message>
    <message>
        <source>This picture cannot be printed: it cannot be decoded.</source>
        <translation>No se puede imprimir esta imagen: no se puede decodificar.</translation>
    </message>
    <message>
        <source>The printer does not take the picture.</source>
        <translation>La impresora no acepta la imagen.</translation>
    </message>
    <message>
        <source>This file could not be written: %1</source>
        <translation>No se pudo escribir este archivo: %1</translation>
    </message>
</context>
<context>
    <name>Form22</name>
    <message>
        <source>New version</source>
        <translation>Nueva versión</translation>
    </message>
</context>
<context>
    <name>Form26</name>
    <message>
        <source>Edited, not saved: %1</source>
        <translation>Modificado, sin guardar: %1</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Descartar</translation>
    </message>
    <message>
        <source>%1 was deleted</source>
        <translation>%1 se ha borrado</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>%1 is in the database already. Replace its record by what the boxes show?</source>
        <translation>%1 ya está en la base de datos. ¿Sustituir su registro por lo que muestran las casillas?</translation>
    </message>
</context>
<context>
    <name>Form5</name>
    <message>
        <source>Close without saving</source>
        <translation>Cerrar sin guardar</translation>
    </message>
    <message>
        <source>Name of the page</source>
        <translation>Nombre de la página</translation>
    </message>
    <message>
        <source>These files could not be written: %1. The new names and places hold as long as the program runs; when it closes it tries again.</source>
        <translation>No se han podido escribir estos archivos: %1. Los nuevos nombres y lugares valen mientras el programa esté abierto; al cerrarse lo intentará de nuevo.</translation>
    </message>
    <message>
        <source>The pictures in this folder could not be moved, so nothing has been changed: %1</source>
        <translation>No se han podido mover las imágenes de esta carpeta, así que no se ha cambiado nada: %1</translation>
    </message>
</context>
<context>
    <name>Form6</name>
    <message>
        <source>Remove all</source>
        <translation>Eliminar todos</translation>
    </message>
    <message>
        <source>Keep all</source>
        <translation>Conservar todos</translation>
    </message>
    <message>
        <source>The changes were not made, as these files could not be written:</source>
        <translation>No se hicieron los cambios porque no se pudieron escribir estos archivos:</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Cerrar sin guardar</translation>
    </message>
</context>
<context>
    <name>Form7</name>
    <message>
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Descartar</translation>
    </message>
    <message>
        <source>This entry is changed and not saved yet.</source>
        <translation>Esta entrada ha cambiado y aún no se ha guardado.</translation>
    </message>
    <message>
        <source>Callsign and address must not be empty.</source>
        <translation>El indicativo y la dirección no pueden estar vacíos.</translation>
    </message>
    <message>
        <source>Entries with changes that are not saved: %1. Close all the same?</source>
        <translation>Entradas con cambios sin guardar: %1. ¿Cerrar de todos modos?</translation>
    </message>
    <message>
        <source>Go back</source>
        <translation>Volver</translation>
    </message>
</context>
<context>
    <name>MainUpdates</name>
    <message>
        <source>The sites have been changed, but their positions could not be written to the call database.</source>
        <translation>Las estaciones se han cambiado, pero sus posiciones no se han podido escribir en la base de datos de indicativos.</translation>
    </message>
</context>
<context>
    <name>MapWindow</name>
    <message>
        <source>%1 cannot be read</source>
        <translation>No se puede leer %1</translation>
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
        <translation>Aquí no se pueden mostrar páginas: falta una parte del programa (libomni_web.so).</translation>
    </message>
    <message>
        <source>Open in the browser</source>
        <translation>Abrir en el navegador</translation>
    </message>
    <message>
        <source>Films cannot be played: a part of the program (omni-perch-player) is missing.</source>
        <translation>No se pueden reproducir películas: falta una parte del programa (omni-perch-player).</translation>
    </message>
    <message>
        <source>The film could not be copied for the desktop&apos;s player.</source>
        <translation>No se pudo copiar la película para el reproductor del escritorio.</translation>
    </message>
    <message>
        <source>The desktop has no player for films.</source>
        <translation>El escritorio no tiene reproductor de películas.</translation>
    </message>
    <message>
        <source>Open the film with the desktop&apos;s own player? It has no sandbox: a film that is made to do harm can do it there.</source>
        <translation>¿Abrir la película con el reproductor del escritorio? No tiene un entorno aislado: una película hecha para causar daño puede hacerlo allí.</translation>
    </message>
</context>
<context>
    <name>MenuStrip</name>
    <message>
        <source>More</source>
        <translation>Más</translation>
    </message>
    <message>
        <source>The author&apos;s list of sites has been compared</source>
        <translation>Se ha comparado la lista de estaciones del autor</translation>
    </message>
</context>
<context>
    <name>NotWrittenWords</name>
    <message>
        <source>%1 could not be written: is the disk full, or the folder read-only? Nothing has been changed; what you typed stays here.</source>
        <translation>No se pudo escribir %1: ¿está lleno el disco o es la carpeta de solo lectura? No se ha cambiado nada; lo que ha escrito permanece aquí.</translation>
    </message>
</context>
<context>
    <name>OnAirModel</name>
    <message>
        <source>Call</source>
        <translation>Indicativo</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Modo</translation>
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
        <translation>Ordenar por esta columna (Ctrl+%1)</translation>
    </message>
    <message>
        <source>Picture of %1</source>
        <translation>Foto de %1</translation>
    </message>
</context>
<context>
    <name>OnAirSession</name>
    <message numerus="yes">
        <source>%n further station(s) are not shown.</source>
        <translation>
            <numerusform>%n estación más no se muestra.</numerusform>
            <numerusform>%n estaciones más no se muestran.</numerusform>
        </translation>
    </message>
    <message>
        <source>The end of a list that is too long was not read.</source>
        <translation>No se leyó el final de una lista demasiado larga.</translation>
    </message>
</context>
<context>
    <name>PictureActions</name>
    <message>
        <source>This picture cannot be copied: it cannot be decoded.</source>
        <translation>Esta imagen no se puede copiar: no se puede descodificar.</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <translation>Guardado como %1</translation>
    </message>
    <message>
        <source>This file could not be written: %1</source>
        <translation>No se pudo escribir este archivo: %1</translation>
    </message>
    <message>
        <source>There is no program for mail. The picture is on the clipboard.</source>
        <translation>No hay ningún programa de correo. La imagen está en el portapapeles.</translation>
    </message>
    <message>
        <source>The picture is on the clipboard.</source>
        <translation>La imagen está en el portapapeles.</translation>
    </message>
    <message>
        <source>%1 of %2 pictures have been saved</source>
        <translation>%1 de %2 imágenes guardadas</translation>
    </message>
</context>
<context>
    <name>PictureTransfer</name>
    <message>
        <source>This picture cannot be pasted: it cannot be decoded.</source>
        <translation>No se puede pegar esta imagen: no se puede decodificar.</translation>
    </message>
</context>
<context>
    <name>PropagationMap</name>
    <message>
        <source>The newest report is older than this period</source>
        <translation>El informe más reciente es anterior a este período</translation>
    </message>
    <message numerus="yes">
        <source>%n older report(s) were left out.</source>
        <translation>
            <numerusform>Se omitió %n informe más antiguo.</numerusform>
            <numerusform>Se omitieron %n informes más antiguos.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SaveAllLine</name>
    <message>
        <source>%1 of %2 pictures have been saved</source>
        <translation>%1 de %2 imágenes guardadas</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Detener</translation>
    </message>
</context>
<context>
    <name>SaveLine</name>
    <message>
        <source>%1 could not be written. What you have entered is still here.</source>
        <translation>No se pudo escribir %1. Lo que ha introducido sigue aquí.</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Reintentar</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Cerrar sin guardar</translation>
    </message>
</context>
<context>
    <name>SetupWindows</name>
    <message>
        <source>The files have been copied to %1</source>
        <translation>Los archivos se han copiado en %1</translation>
    </message>
    <message>
        <source>The backup is not complete. These files could not be written:</source>
        <translation>La copia no está completa. No se han podido escribir estos archivos:</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>y %n más</numerusform>
            <numerusform>y %n más</numerusform>
        </translation>
    </message>
    <message>
        <source>The help could not be opened: %1</source>
        <translation>No se ha podido abrir la ayuda: %1</translation>
    </message>
</context>
<context>
    <name>SignInPage</name>
    <message>
        <source>The window for web pages could not be opened.</source>
        <translation>No se pudo abrir la ventana de páginas web.</translation>
    </message>
</context>
<context>
    <name>SignInSession</name>
    <message>
        <source>Sign in to %1</source>
        <translation>Iniciar sesión en %1</translation>
    </message>
    <message>
        <source>Sign out of %1</source>
        <translation>Cerrar sesión en %1</translation>
    </message>
</context>
<context>
    <name>SiteForm</name>
    <message>
        <source>Keep, whatever the server&apos;s list says</source>
        <translation>Conservar, diga lo que diga la lista del servidor</translation>
    </message>
    <message>
        <source>Looking at the address ...</source>
        <translation>Comprobando la dirección ...</translation>
    </message>
    <message>
        <source>Picture found, %1x%2.</source>
        <translation>Imagen encontrada, %1x%2.</translation>
    </message>
    <message>
        <source>It answers, but with no picture.</source>
        <translation>Responde, pero sin imagen.</translation>
    </message>
    <message>
        <source>Nobody answers at this address.</source>
        <translation>Nadie responde en esta dirección.</translation>
    </message>
    <message>
        <source>This is no address of the web (http or https).</source>
        <translation>Esta no es una dirección web (http o https).</translation>
    </message>
    <message>
        <source>It is polled only if it ends in image1.</source>
        <translation>Solo se consulta si termina en image1.</translation>
    </message>
</context>
<context>
    <name>SitePicker</name>
    <message>
        <source>%1, changed, not saved</source>
        <translation>%1, cambiado, sin guardar</translation>
    </message>
    <message>
        <source>Search by call or address</source>
        <translation>Buscar por indicativo o dirección</translation>
    </message>
</context>
<context>
    <name>ThumbCell</name>
    <message>
        <source>stale</source>
        <translation>anticuada</translation>
    </message>
    <message>
        <source>marked for comparison</source>
        <translation>marcada para comparar</translation>
    </message>
</context>
<context>
    <name>UndoLine</name>
    <message>
        <source>The page was compacted</source>
        <translation>La página se ha compactado</translation>
    </message>
    <message>
        <source>%1 was removed from the page</source>
        <translation>Se ha quitado %1 de la página</translation>
    </message>
    <message>
        <source>All sites were removed from the page</source>
        <translation>Se han quitado todas las estaciones de la página</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>No se pudo escribir %1.</translation>
    </message>
    <message>
        <source>%1 was removed from the list of sites</source>
        <translation>%1 se ha eliminado de la lista de estaciones</translation>
    </message>
    <message>
        <source>The list of sites was changed</source>
        <translation>La lista de estaciones ha cambiado</translation>
    </message>
    <message>
        <source>Sites added: %1, removed: %2</source>
        <translation>Estaciones añadidas: %1, eliminadas: %2</translation>
    </message>
</context>
<context>
    <name>WebPage</name>
    <message>
        <source>Not opened: %1</source>
        <translation>No abierto: %1</translation>
    </message>
    <message>
        <source>Pages get no files here.</source>
        <translation>Las páginas no reciben archivos aquí.</translation>
    </message>
    <message>
        <source>Answered with no: %1</source>
        <translation>Respondido con no: %1</translation>
    </message>
    <message>
        <source>Not answered: %1</source>
        <translation>Sin respuesta: %1</translation>
    </message>
    <message>
        <source>Refused, its certificate does not hold: %1</source>
        <translation>Rechazado, su certificado no es válido: %1</translation>
    </message>
</context>
<context>
    <name>WebWindow</name>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Recargar</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Cortar</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Pegar</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Seleccionar todo</translation>
    </message>
    <message>
        <source>Encrypted</source>
        <translation>Cifrado</translation>
    </message>
    <message>
        <source>Not encrypted</source>
        <translation>Sin cifrar</translation>
    </message>
    <message>
        <source>Not trusted</source>
        <translation>No fiable</translation>
    </message>
    <message>
        <source>Connection</source>
        <translation>Conexión</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Dirección</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Página</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Mensaje</translation>
    </message>
    <message>
        <source>The page has stopped. Reload shows it again.</source>
        <translation>La página se ha detenido. Recargar la muestra de nuevo.</translation>
    </message>
</context>
<context>
    <name>frmMapPropagation</name>
    <message>
        <source>Band</source>
        <translation>Banda</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Modo</translation>
    </message>
</context>
<context>
    <name>frmStView</name>
    <message>
        <source>The page has stopped. F5 shows it again.</source>
        <translation>La página se ha detenido. F5 la muestra de nuevo.</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Página</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Mensaje</translation>
    </message>
</context>
<context>
    <name>frmWmp</name>
    <message>
        <source>The film does not begin.</source>
        <translation>La película no empieza.</translation>
    </message>
    <message>
        <source>This film cannot be played: its file is gone, or too large.</source>
        <translation>No se puede reproducir esta película: su archivo ya no existe o es demasiado grande.</translation>
    </message>
    <message>
        <source>Films are not played: this system has no sandbox for the player (no seccomp filters).</source>
        <translation>No se reproducen películas: este sistema no tiene un entorno aislado para el reproductor (sin filtros seccomp).</translation>
    </message>
    <message>
        <source>Films of this kind cannot be played. What is missing: %1</source>
        <translation>No se pueden reproducir películas de este tipo. Falta: %1</translation>
    </message>
    <message>
        <source>This film cannot be played: it is damaged, or no film.</source>
        <translation>No se puede reproducir esta película: está dañada o no es una película.</translation>
    </message>
    <message>
        <source>This film cannot be played. What may be missing: %1</source>
        <translation>No se puede reproducir esta película. Quizá falte: %1</translation>
    </message>
    <message>
        <source>Film</source>
        <translation>Película</translation>
    </message>
    <message>
        <source>Open with the desktop&apos;s player</source>
        <translation>Abrir con el reproductor del escritorio</translation>
    </message>
    <message>
        <source>There is no sound: this system has no device for it.</source>
        <translation>No hay sonido: este sistema no tiene un dispositivo para ello.</translation>
    </message>
    <message>
        <source>This film has no sound.</source>
        <translation>Esta película no tiene sonido.</translation>
    </message>
</context>
</TS>
