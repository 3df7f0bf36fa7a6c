<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru">
<context>
    <name>Backup</name>
    <message>
        <source>The folder cannot be made.</source>
        <translation>Не удаётся создать папку.</translation>
    </message>
</context>
<context>
    <name>BrowserPages</name>
    <message>
        <source>Not saved: %1</source>
        <translation>Не сохранено: %1</translation>
    </message>
</context>
<context>
    <name>CallListModel</name>
    <message>
        <source>%1, edited</source>
        <translation>%1, изменено</translation>
    </message>
</context>
<context>
    <name>CamModel</name>
    <message>
        <source>on this page</source>
        <translation>на этой странице</translation>
    </message>
</context>
<context>
    <name>CamWords</name>
    <message>
        <source>cam is being tested</source>
        <translation>камера проверяется</translation>
    </message>
    <message>
        <source>cam answers</source>
        <translation>камера отвечает</translation>
    </message>
    <message>
        <source>cam does not answer</source>
        <translation>камера не отвечает</translation>
    </message>
    <message>
        <source>no cam tested</source>
        <translation>камера не проверялась</translation>
    </message>
</context>
<context>
    <name>CellGridView</name>
    <message>
        <source>Pictures are not decoded: this system has no sandbox for the decoder (no seccomp filters)</source>
        <translation>Изображения не декодируются: в этой системе нет песочницы для декодера (нет фильтров seccomp)</translation>
    </message>
</context>
<context>
    <name>CleanField</name>
    <message>
        <source>Cut: only %1 letters fit.</source>
        <translation>Обрезано: помещается только %1 символов.</translation>
    </message>
    <message>
        <source>* and line ends are left out.</source>
        <translation>* и концы строк пропускаются.</translation>
    </message>
    <message>
        <source>Line ends are left out.</source>
        <translation>Концы строк пропускаются.</translation>
    </message>
    <message>
        <source>Emoji and foreign letters are left out.</source>
        <translation>Эмодзи и посторонние буквы опускаются.</translation>
    </message>
</context>
<context>
    <name>CompareWindow</name>
    <message>
        <source>Picture</source>
        <translation>Изображение</translation>
    </message>
    <message>
        <source>Comparison</source>
        <translation>Сравнение</translation>
    </message>
    <message>
        <source>This picture cannot be shown.</source>
        <translation>Это изображение нельзя показать.</translation>
    </message>
</context>
<context>
    <name>CoordinateFetch</name>
    <message>
        <source>This is no callsign.</source>
        <translation>Это не позывной.</translation>
    </message>
    <message>
        <source>%1 not found on %2</source>
        <translation>%1 не найден на %2</translation>
    </message>
    <message>
        <source>* Coordinates not available from %1
    Derived from address or zipcode.</source>
        <translation>* Координаты недоступны на %1
    Получены по адресу или почтовому индексу.</translation>
    </message>
</context>
<context>
    <name>EasyPalPaste</name>
    <message>
        <source>EasyPal did not come to the front. The picture is on the clipboard: press F7 in EasyPal.</source>
        <translation>Окно EasyPal не вышло на передний план. Изображение в буфере обмена: нажмите F7 в EasyPal.</translation>
    </message>
    <message>
        <source>The picture is on the clipboard. Press F7 in EasyPal to paste it.</source>
        <translation>Изображение в буфере обмена. Нажмите F7 в EasyPal, чтобы вставить его.</translation>
    </message>
</context>
<context>
    <name>EmptyPage</name>
    <message>
        <source>No station stands on any page yet</source>
        <translation>Ни на одной странице ещё нет станций</translation>
    </message>
    <message>
        <source>The list of weather pictures is empty</source>
        <translation>Список снимков погоды пуст</translation>
    </message>
    <message>
        <source>Your list has no sites. Get those of the author&apos;s list, or add one yourself.</source>
        <translation>В вашем списке нет сайтов. Возьмите сайты из списка автора или добавьте сайт сами.</translation>
    </message>
    <message numerus="yes">
        <source>Your list has %n site(s). Open the site index and press the one that is to stand in the first place of this page.</source>
        <translation>
            <numerusform>В вашем списке %n сайт. Откройте список сайтов и нажмите тот, который должен стоять на первом месте этой страницы.</numerusform>
            <numerusform>В вашем списке %n сайта. Откройте список сайтов и нажмите тот, который должен стоять на первом месте этой страницы.</numerusform>
            <numerusform>В вашем списке %n сайтов. Откройте список сайтов и нажмите тот, который должен стоять на первом месте этой страницы.</numerusform>
        </translation>
    </message>
    <message>
        <source>Get the author&apos;s list</source>
        <translation>Взять список автора</translation>
    </message>
    <message>
        <source>The author&apos;s server is not named in hosts.ini.</source>
        <translation>Сервер автора не указан в hosts.ini.</translation>
    </message>
    <message>
        <source>Your callsign and location are set.</source>
        <translation>Позывной и координаты заданы.</translation>
    </message>
    <message>
        <source>Put the copy back</source>
        <translation>Вернуть копию</translation>
    </message>
    <message numerus="yes">
        <source>There is a copy of %1 with %n site(s). Putting it back adds them to the list; nothing is removed.</source>
        <translation>
            <numerusform>Есть копия от %1, в ней %n сайт. Он будет добавлен в список; ничего не удаляется.</numerusform>
            <numerusform>Есть копия от %1, в ней %n сайта. Они будут добавлены в список; ничего не удаляется.</numerusform>
            <numerusform>Есть копия от %1, в ней %n сайтов. Они будут добавлены в список; ничего не удаляется.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>They return to their places on %n page(s).</source>
        <translation>
            <numerusform>Они вернутся на свои места на %n странице.</numerusform>
            <numerusform>Они вернутся на свои места на %n страницах.</numerusform>
            <numerusform>Они вернутся на свои места на %n страницах.</numerusform>
        </translation>
    </message>
    <message>
        <source>These files could not be written: %1</source>
        <translation>Не удалось записать эти файлы: %1</translation>
    </message>
    <message>
        <source>The author&apos;s list is being fetched...</source>
        <translation>Список автора загружается…</translation>
    </message>
    <message>
        <source>The author&apos;s list could not be fetched.</source>
        <translation>Не удалось загрузить список автора.</translation>
    </message>
</context>
<context>
    <name>FetchGroup</name>
    <message>
        <source>%1 has %2, %3. What you have typed stays.</source>
        <translation>На %1 указано %2, %3. Введённое вами сохранено.</translation>
    </message>
</context>
<context>
    <name>FilmControls</name>
    <message>
        <source>Back</source>
        <translation>Назад</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Вперёд</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Пауза</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Воспроизвести</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Пробел</translation>
    </message>
    <message>
        <source>Position in the film</source>
        <translation>Место в фильме</translation>
    </message>
    <message>
        <source>Sound on</source>
        <translation>Включить звук</translation>
    </message>
    <message>
        <source>Sound off</source>
        <translation>Выключить звук</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Громкость</translation>
    </message>
    <message>
        <source>Leave the full screen</source>
        <translation>Выйти из полноэкранного режима</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>Во весь экран</translation>
    </message>
</context>
<context>
    <name>Form1</name>
    <message>
        <source>Automatic refresh rests because a picture was opened. It goes on after the next refresh or change of page.</source>
        <translation>Автоматическое обновление приостановлено, потому что открыто изображение. Оно возобновится после следующего обновления или смены страницы.</translation>
    </message>
</context>
<context>
    <name>Form11</name>
    <message>
        <source>Without your position no distance can be told, and no map shows you.</source>
        <translation>Без вашего положения нельзя указать расстояния, и ни одна карта вас не покажет.</translation>
    </message>
    <message>
        <source>Not a callsign; your own callsign stays as it is.</source>
        <translation>Это не позывной; ваш позывной остаётся прежним.</translation>
    </message>
</context>
<context>
    <name>Form12</name>
    <message>
        <source>Distance and direction</source>
        <translation>Расстояние и направление</translation>
    </message>
</context>
<context>
    <name>Form13</name>
    <message>
        <source>Picture of %1</source>
        <translation>Фото %1</translation>
    </message>
</context>
<context>
    <name>Form15</name>
    <message>
        <source>Rows of pictures</source>
        <translation>Ряды картинок</translation>
    </message>
    <message>
        <source>%1 of %2 pictures</source>
        <translation>%1 из %2 картинок</translation>
    </message>
</context>
<context>
    <name>Form18</name>
    <message>
        <source>Blocked text %1</source>
        <translation>Блокируемый текст %1</translation>
    </message>
</context>
<context>
    <name>Form2</name>
    <message>
        <source>Picture</source>
        <translation>Изображение</translation>
    </message>
    <message>
        <source>The picture is being decoded …</source>
        <translation>Изображение декодируется …</translation>
    </message>
    <message>
        <source>This picture cannot be shown: its file is gone, or damaged.</source>
        <translation>Это изображение нельзя показать: файл отсутствует или повреждён.</translation>
    </message>
    <message>
        <source>Pictures are not decoded: this system has no sandbox for the decoder (no seccomp filters)</source>
        <translation>Изображения не декодируются: в этой системе нет песочницы для декодера (нет фильтров seccomp)</translation>
    </message>
    <message>
        <source>A film: Return plays it.</source>
        <translation>Фильм: Enter воспроизводит его.</translation>
    </message>
</context>
<context>
    <name>Form21</name>
    <message>
        <source>Fits on the page</source>
        <translation>Помещается на странице</translation>
    </message>
    <message>
        <source>Larger than the page</source>
        <translation>Больше страницы</translation>
    </message>
    <message>
        <source>Cancel the print</source>
        <translation>Отменить печать</translation>
    </message>
    <message>
        <source>Preview of the page</source>
        <translation>Предварительный просмотр страницы</translation>
    </message>
    <message>
        <source>Waiting for the printer ...</source>
        <translation>Ожидание принтера ...</translation>
    </message>
    <message>
        <source>The picture is being read ...</source>
        <translation>Изображение читается ...</translation>
    </message>
    <message>
        <source>Printing ...</source>
        <translation>Идёт печать ...</translation>
    </message>
    <message>
        <source>There is no printer.</source>
        <translation>Нет принтера.</translation>
    </message>
    <message>
        <source>The picture has gone to the printer.</source>
        <translation>Изображение отправлено на принтер.</translation>
    </message>
    <message>
        <source>Written: %1</source>
        <translation>Записано: %1</translation>
    </message>
    <message>
        <source>The print was cancelled.</source>
        <translation>Печать отменена.</translation>
    </message>
    <message>
        <source>This picture cannot be printed: it cannot be decoded.</source>
        <translation>Это изображение нельзя напечатать: его не удаётся декодировать.</translation>
    </message>
    <message>
        <source>The printer does not take the picture.</source>
        <translation>Принтер не принимает изображение.</translation>
    </message>
    <message>
        <source>This file could not be written: %1</source>
        <translation>Не удалось записать этот файл: %1</translation>
    </message>
</context>
<context>
    <name>Form22</name>
    <message>
        <source>New version</source>
        <translation>Новая версия</translation>
    </message>
</context>
<context>
    <name>Form26</name>
    <message>
        <source>Edited, not saved: %1</source>
        <translation>Изменено, не сохранено: %1</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Сохранить</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Отменить изменения</translation>
    </message>
    <message>
        <source>%1 was deleted</source>
        <translation>%1 удалён</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Отменить</translation>
    </message>
    <message>
        <source>%1 is in the database already. Replace its record by what the boxes show?</source>
        <translation>%1 уже есть в базе. Заменить запись тем, что показано в полях?</translation>
    </message>
</context>
<context>
    <name>Form5</name>
    <message>
        <source>Close without saving</source>
        <translation>Закрыть без сохранения</translation>
    </message>
    <message>
        <source>Name of the page</source>
        <translation>Название страницы</translation>
    </message>
    <message>
        <source>These files could not be written: %1. The new names and places hold as long as the program runs; when it closes it tries again.</source>
        <translation>Не удалось записать эти файлы: %1. Новые названия и места действуют, пока программа работает; при закрытии она попробует ещё раз.</translation>
    </message>
    <message>
        <source>The pictures in this folder could not be moved, so nothing has been changed: %1</source>
        <translation>Не удалось переместить изображения в этой папке, поэтому ничего не изменено: %1</translation>
    </message>
</context>
<context>
    <name>Form6</name>
    <message>
        <source>Remove all</source>
        <translation>Удалить все</translation>
    </message>
    <message>
        <source>Keep all</source>
        <translation>Оставить все</translation>
    </message>
    <message>
        <source>The changes were not made, as these files could not be written:</source>
        <translation>Изменения не внесены, так как не удалось записать эти файлы:</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Закрыть без сохранения</translation>
    </message>
</context>
<context>
    <name>Form7</name>
    <message>
        <source>Save</source>
        <translation>Сохранить</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Отменить</translation>
    </message>
    <message>
        <source>This entry is changed and not saved yet.</source>
        <translation>Эта запись изменена и ещё не сохранена.</translation>
    </message>
    <message>
        <source>Callsign and address must not be empty.</source>
        <translation>Позывной и адрес не должны быть пустыми.</translation>
    </message>
    <message>
        <source>Entries with changes that are not saved: %1. Close all the same?</source>
        <translation>Записей с несохранёнными изменениями: %1. Всё равно закрыть?</translation>
    </message>
    <message>
        <source>Go back</source>
        <translation>Вернуться</translation>
    </message>
</context>
<context>
    <name>MainUpdates</name>
    <message>
        <source>The sites have been changed, but their positions could not be written to the call database.</source>
        <translation>Станции изменены, но их координаты не удалось записать в базу позывных.</translation>
    </message>
</context>
<context>
    <name>MapWindow</name>
    <message>
        <source>%1 cannot be read</source>
        <translation>Не удаётся прочитать %1</translation>
    </message>
    <message>
        <source>%1° S</source>
        <translation>%1° ю. ш.</translation>
    </message>
    <message>
        <source>%1° N</source>
        <translation>%1° с. ш.</translation>
    </message>
    <message>
        <source>%1° W</source>
        <translation>%1° з. д.</translation>
    </message>
    <message>
        <source>%1° E</source>
        <translation>%1° в. д.</translation>
    </message>
</context>
<context>
    <name>MediaViews</name>
    <message>
        <source>Pages cannot be shown here: a part of the program (libomni_web.so) is missing.</source>
        <translation>Страницы здесь показать нельзя: отсутствует часть программы (libomni_web.so).</translation>
    </message>
    <message>
        <source>Open in the browser</source>
        <translation>Открыть в браузере</translation>
    </message>
    <message>
        <source>Films cannot be played: a part of the program (omni-perch-player) is missing.</source>
        <translation>Фильмы воспроизвести нельзя: отсутствует часть программы (omni-perch-player).</translation>
    </message>
    <message>
        <source>The film could not be copied for the desktop&apos;s player.</source>
        <translation>Не удалось скопировать фильм для проигрывателя рабочего стола.</translation>
    </message>
    <message>
        <source>The desktop has no player for films.</source>
        <translation>На рабочем столе нет проигрывателя фильмов.</translation>
    </message>
    <message>
        <source>Open the film with the desktop&apos;s own player? It has no sandbox: a film that is made to do harm can do it there.</source>
        <translation>Открыть фильм в проигрывателе рабочего стола? У него нет песочницы: фильм, созданный, чтобы навредить, может там это сделать.</translation>
    </message>
</context>
<context>
    <name>MenuStrip</name>
    <message>
        <source>More</source>
        <translation>Ещё</translation>
    </message>
    <message>
        <source>The author&apos;s list of sites has been compared</source>
        <translation>Список станций автора сверен</translation>
    </message>
</context>
<context>
    <name>NotWrittenWords</name>
    <message>
        <source>%1 could not be written: is the disk full, or the folder read-only? Nothing has been changed; what you typed stays here.</source>
        <translation>Не удалось записать %1: возможно, диск полон или папка доступна только для чтения. Ничего не изменено; введённое остаётся здесь.</translation>
    </message>
</context>
<context>
    <name>OnAirModel</name>
    <message>
        <source>Call</source>
        <translation>Позывной</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Вид</translation>
    </message>
    <message>
        <source>MHz</source>
        <translation>МГц</translation>
    </message>
    <message>
        <source>Az</source>
        <translation>Аз</translation>
    </message>
    <message>
        <source>Pic</source>
        <translation>Фото</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>Инфо</translation>
    </message>
    <message>
        <source>Sort by this column (Ctrl+%1)</source>
        <translation>Сортировать по этому столбцу (Ctrl+%1)</translation>
    </message>
    <message>
        <source>Picture of %1</source>
        <translation>Фото %1</translation>
    </message>
</context>
<context>
    <name>OnAirSession</name>
    <message numerus="yes">
        <source>%n further station(s) are not shown.</source>
        <translation>
            <numerusform>Ещё %n станция не показана.</numerusform>
            <numerusform>Ещё %n станции не показаны.</numerusform>
            <numerusform>Ещё %n станций не показаны.</numerusform>
        </translation>
    </message>
    <message>
        <source>The end of a list that is too long was not read.</source>
        <translation>Конец слишком длинного списка не прочитан.</translation>
    </message>
</context>
<context>
    <name>PictureActions</name>
    <message>
        <source>This picture cannot be copied: it cannot be decoded.</source>
        <translation>Это изображение нельзя скопировать: его не удаётся декодировать.</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <translation>Сохранено как %1</translation>
    </message>
    <message>
        <source>This file could not be written: %1</source>
        <translation>Не удалось записать этот файл: %1</translation>
    </message>
    <message>
        <source>There is no program for mail. The picture is on the clipboard.</source>
        <translation>Нет почтовой программы. Изображение находится в буфере обмена.</translation>
    </message>
    <message>
        <source>The picture is on the clipboard.</source>
        <translation>Изображение находится в буфере обмена.</translation>
    </message>
    <message>
        <source>%1 of %2 pictures have been saved</source>
        <translation>Сохранено изображений: %1 из %2</translation>
    </message>
</context>
<context>
    <name>PictureTransfer</name>
    <message>
        <source>This picture cannot be pasted: it cannot be decoded.</source>
        <translation>Это изображение нельзя вставить: его не удаётся декодировать.</translation>
    </message>
</context>
<context>
    <name>PropagationMap</name>
    <message>
        <source>The newest report is older than this period</source>
        <translation>Самое новое сообщение старше этого периода</translation>
    </message>
    <message numerus="yes">
        <source>%n older report(s) were left out.</source>
        <translation>
            <numerusform>Опущено более старых отчётов: %n.</numerusform>
            <numerusform>Опущено более старых отчётов: %n.</numerusform>
            <numerusform>Опущено более старых отчётов: %n.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SaveAllLine</name>
    <message>
        <source>%1 of %2 pictures have been saved</source>
        <translation>Сохранено изображений: %1 из %2</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Остановить</translation>
    </message>
</context>
<context>
    <name>SaveLine</name>
    <message>
        <source>%1 could not be written. What you have entered is still here.</source>
        <translation>Не удалось записать %1. Введённое вами сохранилось в окне.</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Повторить</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Закрыть без сохранения</translation>
    </message>
</context>
<context>
    <name>SetupWindows</name>
    <message>
        <source>The files have been copied to %1</source>
        <translation>Файлы скопированы в %1</translation>
    </message>
    <message>
        <source>The backup is not complete. These files could not be written:</source>
        <translation>Копия неполная. Не удалось записать эти файлы:</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>и ещё %n</numerusform>
            <numerusform>и ещё %n</numerusform>
            <numerusform>и ещё %n</numerusform>
        </translation>
    </message>
    <message>
        <source>The help could not be opened: %1</source>
        <translation>Не удалось открыть справку: %1</translation>
    </message>
</context>
<context>
    <name>SignInPage</name>
    <message>
        <source>The window for web pages could not be opened.</source>
        <translation>Не удалось открыть окно веб-страниц.</translation>
    </message>
</context>
<context>
    <name>SignInSession</name>
    <message>
        <source>Sign in to %1</source>
        <translation>Войти на %1</translation>
    </message>
    <message>
        <source>Sign out of %1</source>
        <translation>Выйти из %1</translation>
    </message>
</context>
<context>
    <name>SiteForm</name>
    <message>
        <source>Keep, whatever the server&apos;s list says</source>
        <translation>Оставить, что бы ни говорил список сервера</translation>
    </message>
    <message>
        <source>Looking at the address ...</source>
        <translation>Проверка адреса ...</translation>
    </message>
    <message>
        <source>Picture found, %1x%2.</source>
        <translation>Изображение найдено, %1x%2.</translation>
    </message>
    <message>
        <source>It answers, but with no picture.</source>
        <translation>Ответ есть, но без изображения.</translation>
    </message>
    <message>
        <source>Nobody answers at this address.</source>
        <translation>По этому адресу никто не отвечает.</translation>
    </message>
    <message>
        <source>This is no address of the web (http or https).</source>
        <translation>Это не веб-адрес (http или https).</translation>
    </message>
    <message>
        <source>It is polled only if it ends in image1.</source>
        <translation>Опрашивается, только если оканчивается на image1.</translation>
    </message>
</context>
<context>
    <name>SitePicker</name>
    <message>
        <source>%1, changed, not saved</source>
        <translation>%1, изменено, не сохранено</translation>
    </message>
    <message>
        <source>Search by call or address</source>
        <translation>Поиск по позывному или адресу</translation>
    </message>
</context>
<context>
    <name>ThumbCell</name>
    <message>
        <source>stale</source>
        <translation>устарело</translation>
    </message>
    <message>
        <source>marked for comparison</source>
        <translation>отмечено для сравнения</translation>
    </message>
</context>
<context>
    <name>UndoLine</name>
    <message>
        <source>The page was compacted</source>
        <translation>Пустые места на странице убраны</translation>
    </message>
    <message>
        <source>%1 was removed from the page</source>
        <translation>%1 убран со страницы</translation>
    </message>
    <message>
        <source>All sites were removed from the page</source>
        <translation>Все станции убраны со страницы</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Отменить</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>Не удалось записать %1.</translation>
    </message>
    <message>
        <source>%1 was removed from the list of sites</source>
        <translation>%1: удалено из списка станций</translation>
    </message>
    <message>
        <source>The list of sites was changed</source>
        <translation>Список станций изменён</translation>
    </message>
    <message>
        <source>Sites added: %1, removed: %2</source>
        <translation>Добавлено станций: %1, удалено: %2</translation>
    </message>
</context>
<context>
    <name>WebPage</name>
    <message>
        <source>Not opened: %1</source>
        <translation>Не открыто: %1</translation>
    </message>
    <message>
        <source>Pages get no files here.</source>
        <translation>Страницы не получают здесь файлов.</translation>
    </message>
    <message>
        <source>Answered with no: %1</source>
        <translation>Дан ответ «нет»: %1</translation>
    </message>
    <message>
        <source>Not answered: %1</source>
        <translation>Без ответа: %1</translation>
    </message>
    <message>
        <source>Refused, its certificate does not hold: %1</source>
        <translation>Отклонено, сертификат недействителен: %1</translation>
    </message>
</context>
<context>
    <name>WebWindow</name>
    <message>
        <source>Back</source>
        <translation>Назад</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Обновить</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Вырезать</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Копировать</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Вставить</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Выделить всё</translation>
    </message>
    <message>
        <source>Encrypted</source>
        <translation>Зашифровано</translation>
    </message>
    <message>
        <source>Not encrypted</source>
        <translation>Не зашифровано</translation>
    </message>
    <message>
        <source>Not trusted</source>
        <translation>Нет доверия</translation>
    </message>
    <message>
        <source>Connection</source>
        <translation>Соединение</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Адрес</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Страница</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Сообщение</translation>
    </message>
    <message>
        <source>The page has stopped. Reload shows it again.</source>
        <translation>Страница остановилась. «Обновить» покажет её снова.</translation>
    </message>
</context>
<context>
    <name>frmMapPropagation</name>
    <message>
        <source>Band</source>
        <translation>Диапазон</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Вид</translation>
    </message>
</context>
<context>
    <name>frmStView</name>
    <message>
        <source>The page has stopped. F5 shows it again.</source>
        <translation>Страница остановилась. F5 покажет её снова.</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Страница</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Сообщение</translation>
    </message>
</context>
<context>
    <name>frmWmp</name>
    <message>
        <source>The film does not begin.</source>
        <translation>Фильм не начинается.</translation>
    </message>
    <message>
        <source>This film cannot be played: its file is gone, or too large.</source>
        <translation>Этот фильм воспроизвести нельзя: его файл исчез или слишком велик.</translation>
    </message>
    <message>
        <source>Films are not played: this system has no sandbox for the player (no seccomp filters).</source>
        <translation>Фильмы не воспроизводятся: в этой системе нет песочницы для проигрывателя (нет фильтров seccomp).</translation>
    </message>
    <message>
        <source>Films of this kind cannot be played. What is missing: %1</source>
        <translation>Фильмы этого вида воспроизвести нельзя. Не хватает: %1</translation>
    </message>
    <message>
        <source>This film cannot be played: it is damaged, or no film.</source>
        <translation>Этот фильм воспроизвести нельзя: он повреждён или это не фильм.</translation>
    </message>
    <message>
        <source>This film cannot be played. What may be missing: %1</source>
        <translation>Этот фильм воспроизвести нельзя. Возможно, не хватает: %1</translation>
    </message>
    <message>
        <source>Film</source>
        <translation>Фильм</translation>
    </message>
    <message>
        <source>Open with the desktop&apos;s player</source>
        <translation>Открыть проигрывателем рабочего стола</translation>
    </message>
    <message>
        <source>There is no sound: this system has no device for it.</source>
        <translation>Звука нет: в этой системе нет устройства для него.</translation>
    </message>
    <message>
        <source>This film has no sound.</source>
        <translation>У этого фильма нет звука.</translation>
    </message>
</context>
</TS>
