<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja">
<context>
    <name>Backup</name>
    <message>
        <source>The folder cannot be made.</source>
        <translation>フォルダーを作成できません。</translation>
    </message>
</context>
<context>
    <name>BrowserPages</name>
    <message>
        <source>Not saved: %1</source>
        <translation>保存しませんでした: %1</translation>
    </message>
</context>
<context>
    <name>CallListModel</name>
    <message>
        <source>%1, edited</source>
        <translation>%1、変更あり</translation>
    </message>
</context>
<context>
    <name>CamModel</name>
    <message>
        <source>on this page</source>
        <translation>このページ</translation>
    </message>
</context>
<context>
    <name>CamWords</name>
    <message>
        <source>cam is being tested</source>
        <translation>カメラを確認中</translation>
    </message>
    <message>
        <source>cam answers</source>
        <translation>カメラ応答あり</translation>
    </message>
    <message>
        <source>cam does not answer</source>
        <translation>カメラ応答なし</translation>
    </message>
    <message>
        <source>no cam tested</source>
        <translation>確認したカメラなし</translation>
    </message>
</context>
<context>
    <name>CellGridView</name>
    <message>
        <source>Pictures are not decoded: this system has no sandbox for the decoder (no seccomp filters)</source>
        <translation>画像はデコードされません: このシステムにはデコーダーのサンドボックスがありません (seccomp フィルターなし)</translation>
    </message>
</context>
<context>
    <name>CleanField</name>
    <message>
        <source>Cut: only %1 letters fit.</source>
        <translation>切り詰めました。入るのは%1文字までです。</translation>
    </message>
    <message>
        <source>* and line ends are left out.</source>
        <translation>* と改行は取り除かれます。</translation>
    </message>
    <message>
        <source>Line ends are left out.</source>
        <translation>改行は取り除かれます。</translation>
    </message>
    <message>
        <source>Emoji and foreign letters are left out.</source>
        <translation>絵文字と外国の文字は除かれます。</translation>
    </message>
</context>
<context>
    <name>CompareWindow</name>
    <message>
        <source>Picture</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>Comparison</source>
        <translation>比較</translation>
    </message>
    <message>
        <source>This picture cannot be shown.</source>
        <translation>この画像は表示できません。</translation>
    </message>
</context>
<context>
    <name>CoordinateFetch</name>
    <message>
        <source>This is no callsign.</source>
        <translation>これはコールサインではありません。</translation>
    </message>
    <message>
        <source>%1 not found on %2</source>
        <translation>%1 は %2 に見つかりません</translation>
    </message>
    <message>
        <source>* Coordinates not available from %1
    Derived from address or zipcode.</source>
        <translation>* 座標は %1 にありません
    住所または郵便番号から求めました。</translation>
    </message>
</context>
<context>
    <name>EasyPalPaste</name>
    <message>
        <source>EasyPal did not come to the front. The picture is on the clipboard: press F7 in EasyPal.</source>
        <translation>EasyPal を前面に表示できませんでした。画像はクリップボードにあります。EasyPal で F7 を押してください。</translation>
    </message>
    <message>
        <source>The picture is on the clipboard. Press F7 in EasyPal to paste it.</source>
        <translation>画像はクリップボードにあります。EasyPal で F7 を押すと貼り付けられます。</translation>
    </message>
</context>
<context>
    <name>EmptyPage</name>
    <message>
        <source>No station stands on any page yet</source>
        <translation>まだどのページにも局がありません</translation>
    </message>
    <message>
        <source>The list of weather pictures is empty</source>
        <translation>気象画像のリストは空です</translation>
    </message>
    <message>
        <source>Your list has no sites. Get those of the author&apos;s list, or add one yourself.</source>
        <translation>リストにサイトがありません。作者のリストから取得するか、自分で追加してください。</translation>
    </message>
    <message numerus="yes">
        <source>Your list has %n site(s). Open the site index and press the one that is to stand in the first place of this page.</source>
        <translation>
            <numerusform>リストには %n 件のサイトがあります。サイト一覧を開き、このページの先頭に置くサイトを押してください。</numerusform>
        </translation>
    </message>
    <message>
        <source>Get the author&apos;s list</source>
        <translation>作者のリストを取得</translation>
    </message>
    <message>
        <source>The author&apos;s server is not named in hosts.ini.</source>
        <translation>作者のサーバーが hosts.ini に指定されていません。</translation>
    </message>
    <message>
        <source>Your callsign and location are set.</source>
        <translation>自局のコールサインと位置は設定済みです。</translation>
    </message>
    <message>
        <source>Put the copy back</source>
        <translation>コピーを元に戻す</translation>
    </message>
    <message numerus="yes">
        <source>There is a copy of %1 with %n site(s). Putting it back adds them to the list; nothing is removed.</source>
        <translation>
            <numerusform>%1 のコピーに %n 件のサイトがあります。元に戻すとリストに追加されます。何も削除されません。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>They return to their places on %n page(s).</source>
        <translation>
            <numerusform>%n ページの元の場所に戻ります。</numerusform>
        </translation>
    </message>
    <message>
        <source>These files could not be written: %1</source>
        <translation>書き込めなかったファイル: %1</translation>
    </message>
    <message>
        <source>The author&apos;s list is being fetched...</source>
        <translation>作者のリストを取得しています…</translation>
    </message>
    <message>
        <source>The author&apos;s list could not be fetched.</source>
        <translation>作者のリストを取得できませんでした。</translation>
    </message>
</context>
<context>
    <name>FetchGroup</name>
    <message>
        <source>%1 has %2, %3. What you have typed stays.</source>
        <translation>%1 では %2, %3 です。入力した値はそのままです。</translation>
    </message>
</context>
<context>
    <name>FilmControls</name>
    <message>
        <source>Back</source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>進む</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>一時停止</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>再生</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>スペース</translation>
    </message>
    <message>
        <source>Position in the film</source>
        <translation>映像の再生位置</translation>
    </message>
    <message>
        <source>Sound on</source>
        <translation>音声オン</translation>
    </message>
    <message>
        <source>Sound off</source>
        <translation>音声オフ</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>音量</translation>
    </message>
    <message>
        <source>Leave the full screen</source>
        <translation>全画面を終了</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>全画面</translation>
    </message>
</context>
<context>
    <name>Form1</name>
    <message>
        <source>Automatic refresh rests because a picture was opened. It goes on after the next refresh or change of page.</source>
        <translation>画像を開いたため自動更新は休止しています。次の更新またはページの切り替えで再開します。</translation>
    </message>
</context>
<context>
    <name>Form11</name>
    <message>
        <source>Without your position no distance can be told, and no map shows you.</source>
        <translation>自局の位置がないと、距離は表示されず、地図にも表示されません。</translation>
    </message>
    <message>
        <source>Not a callsign; your own callsign stays as it is.</source>
        <translation>コールサインではありません。自局のコールサインは変わりません。</translation>
    </message>
</context>
<context>
    <name>Form12</name>
    <message>
        <source>Distance and direction</source>
        <translation>距離と方位</translation>
    </message>
</context>
<context>
    <name>Form13</name>
    <message>
        <source>Picture of %1</source>
        <translation>%1 の写真</translation>
    </message>
</context>
<context>
    <name>Form15</name>
    <message>
        <source>Rows of pictures</source>
        <translation>画像の行</translation>
    </message>
    <message>
        <source>%1 of %2 pictures</source>
        <translation>%2枚中%1枚</translation>
    </message>
</context>
<context>
    <name>Form18</name>
    <message>
        <source>Blocked text %1</source>
        <translation>ブロックする文字列 %1</translation>
    </message>
</context>
<context>
    <name>Form2</name>
    <message>
        <source>Picture</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>The picture is being decoded …</source>
        <translation>画像をデコードしています…</translation>
    </message>
    <message>
        <source>This picture cannot be shown: its file is gone, or damaged.</source>
        <translation>この画像は表示できません。ファイルがないか、壊れています。</translation>
    </message>
    <message>
        <source>Pictures are not decoded: this system has no sandbox for the decoder (no seccomp filters)</source>
        <translation>画像はデコードされません: このシステムにはデコーダーのサンドボックスがありません (seccomp フィルターなし)</translation>
    </message>
    <message>
        <source>A film: Return plays it.</source>
        <translation>映像です。Enterキーで再生します。</translation>
    </message>
</context>
<context>
    <name>Form21</name>
    <message>
        <source>Fits on the page</source>
        <translation>ページに収まります</translation>
    </message>
    <message>
        <source>Larger than the page</source>
        <translation>ページより大きくなります</translation>
    </message>
    <message>
        <source>Cancel the print</source>
        <translation>印刷を中止</translation>
    </message>
    <message>
        <source>Preview of the page</source>
        <translation>ページのプレビュー</translation>
    </message>
    <message>
        <source>Waiting for the printer ...</source>
        <translation>プリンターの応答を待っています ...</translation>
    </message>
    <message>
        <source>The picture is being read ...</source>
        <translation>画像を読み込んでいます ...</translation>
    </message>
    <message>
        <source>Printing ...</source>
        <translation>印刷しています ...</translation>
    </message>
    <message>
        <source>There is no printer.</source>
        <translation>プリンターがありません。</translation>
    </message>
    <message>
        <source>The picture has gone to the printer.</source>
        <translation>画像をプリンターに送りました。</translation>
    </message>
    <message>
        <source>Written: %1</source>
        <translation>書き込みました: %1</translation>
    </message>
    <message>
        <source>The print was cancelled.</source>
        <translation>印刷を中止しました。</translation>
    </message>
    <message>
        <source>This picture cannot be printed: it cannot be decoded.</source>
        <translation>この画像は印刷できません。デコードできません。</translation>
    </message>
    <message>
        <source>The printer does not take the picture.</source>
        <translation>プリンターが画像を受け付けません。</translation>
    </message>
    <message>
        <source>This file could not be written: %1</source>
        <translation>このファイルを書き込めませんでした: %1</translation>
    </message>
</context>
<context>
    <name>Form22</name>
    <message>
        <source>New version</source>
        <translation>新しいバージョン</translation>
    </message>
</context>
<context>
    <name>Form26</name>
    <message>
        <source>Edited, not saved: %1</source>
        <translation>変更あり、未保存: %1</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>破棄</translation>
    </message>
    <message>
        <source>%1 was deleted</source>
        <translation>%1 を削除しました</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>%1 is in the database already. Replace its record by what the boxes show?</source>
        <translation>%1 は既にデータベースにあります。表示中の内容で置き換えますか？</translation>
    </message>
</context>
<context>
    <name>Form5</name>
    <message>
        <source>Close without saving</source>
        <translation>保存せずに閉じる</translation>
    </message>
    <message>
        <source>Name of the page</source>
        <translation>ページの名前</translation>
    </message>
    <message>
        <source>These files could not be written: %1. The new names and places hold as long as the program runs; when it closes it tries again.</source>
        <translation>書き込めなかったファイル: %1。新しい名前と順番はプログラムの実行中は有効で、終了時にもう一度保存を試みます。</translation>
    </message>
    <message>
        <source>The pictures in this folder could not be moved, so nothing has been changed: %1</source>
        <translation>このフォルダーの画像を移動できなかったため、何も変更されていません: %1</translation>
    </message>
</context>
<context>
    <name>Form6</name>
    <message>
        <source>Remove all</source>
        <translation>すべて削除</translation>
    </message>
    <message>
        <source>Keep all</source>
        <translation>すべて残す</translation>
    </message>
    <message>
        <source>The changes were not made, as these files could not be written:</source>
        <translation>次のファイルを書き込めなかったため、変更は行われませんでした:</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>保存せずに閉じる</translation>
    </message>
</context>
<context>
    <name>Form7</name>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>破棄</translation>
    </message>
    <message>
        <source>This entry is changed and not saved yet.</source>
        <translation>この項目は変更されましたが、まだ保存されていません。</translation>
    </message>
    <message>
        <source>Callsign and address must not be empty.</source>
        <translation>コールサインとアドレスは空にできません。</translation>
    </message>
    <message>
        <source>Entries with changes that are not saved: %1. Close all the same?</source>
        <translation>保存されていない変更がある項目：%1。それでも閉じますか？</translation>
    </message>
    <message>
        <source>Go back</source>
        <translation>戻る</translation>
    </message>
</context>
<context>
    <name>MainUpdates</name>
    <message>
        <source>The sites have been changed, but their positions could not be written to the call database.</source>
        <translation>局は変更されましたが、その位置をコールサイン データベースに書き込めませんでした。</translation>
    </message>
</context>
<context>
    <name>MapWindow</name>
    <message>
        <source>%1 cannot be read</source>
        <translation>%1 を読み込めません</translation>
    </message>
    <message>
        <source>%1° S</source>
        <translation>南緯 %1°</translation>
    </message>
    <message>
        <source>%1° N</source>
        <translation>北緯 %1°</translation>
    </message>
    <message>
        <source>%1° W</source>
        <translation>西経 %1°</translation>
    </message>
    <message>
        <source>%1° E</source>
        <translation>東経 %1°</translation>
    </message>
</context>
<context>
    <name>MediaViews</name>
    <message>
        <source>Pages cannot be shown here: a part of the program (libomni_web.so) is missing.</source>
        <translation>ここではページを表示できません。プログラムの一部 (libomni_web.so) がありません。</translation>
    </message>
    <message>
        <source>Open in the browser</source>
        <translation>ブラウザーで開く</translation>
    </message>
    <message>
        <source>Films cannot be played: a part of the program (omni-perch-player) is missing.</source>
        <translation>映像を再生できません。プログラムの一部 (omni-perch-player) がありません。</translation>
    </message>
    <message>
        <source>The film could not be copied for the desktop&apos;s player.</source>
        <translation>デスクトップのプレーヤー用に映像をコピーできませんでした。</translation>
    </message>
    <message>
        <source>The desktop has no player for films.</source>
        <translation>デスクトップに映像のプレーヤーがありません。</translation>
    </message>
    <message>
        <source>Open the film with the desktop&apos;s own player? It has no sandbox: a film that is made to do harm can do it there.</source>
        <translation>映像をデスクトップのプレーヤーで開きますか? そのプレーヤーにはサンドボックスがないため、害を与えるように作られた映像はそこで害を与えることができます。</translation>
    </message>
</context>
<context>
    <name>MenuStrip</name>
    <message>
        <source>More</source>
        <translation>その他</translation>
    </message>
    <message>
        <source>The author&apos;s list of sites has been compared</source>
        <translation>作者のサイト一覧と照合しました</translation>
    </message>
</context>
<context>
    <name>NotWrittenWords</name>
    <message>
        <source>%1 could not be written: is the disk full, or the folder read-only? Nothing has been changed; what you typed stays here.</source>
        <translation>%1 に書き込めませんでした。ディスクがいっぱいか、フォルダーが読み取り専用ではありませんか？何も変更されていません。入力した内容はここに残ります。</translation>
    </message>
</context>
<context>
    <name>OnAirModel</name>
    <message>
        <source>Call</source>
        <translation>コール</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>モード</translation>
    </message>
    <message>
        <source>MHz</source>
        <translation>MHz</translation>
    </message>
    <message>
        <source>Az</source>
        <translation>方位</translation>
    </message>
    <message>
        <source>Pic</source>
        <translation>写真</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>情報</translation>
    </message>
    <message>
        <source>Sort by this column (Ctrl+%1)</source>
        <translation>この列で並べ替え (Ctrl+%1)</translation>
    </message>
    <message>
        <source>Picture of %1</source>
        <translation>%1 の写真</translation>
    </message>
</context>
<context>
    <name>OnAirSession</name>
    <message numerus="yes">
        <source>%n further station(s) are not shown.</source>
        <translation>
            <numerusform>ほかに%n局は表示されていません。</numerusform>
        </translation>
    </message>
    <message>
        <source>The end of a list that is too long was not read.</source>
        <translation>長すぎる一覧の末尾は読み込まれませんでした。</translation>
    </message>
</context>
<context>
    <name>PictureActions</name>
    <message>
        <source>This picture cannot be copied: it cannot be decoded.</source>
        <translation>この画像はデコードできないため、コピーできません。</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <translation>%1 として保存しました</translation>
    </message>
    <message>
        <source>This file could not be written: %1</source>
        <translation>このファイルに書き込めませんでした: %1</translation>
    </message>
    <message>
        <source>There is no program for mail. The picture is on the clipboard.</source>
        <translation>メールのプログラムがありません。画像はクリップボードにあります。</translation>
    </message>
    <message>
        <source>The picture is on the clipboard.</source>
        <translation>画像はクリップボードにあります。</translation>
    </message>
    <message>
        <source>%1 of %2 pictures have been saved</source>
        <translation>%2 枚中 %1 枚の画像を保存しました</translation>
    </message>
</context>
<context>
    <name>PictureTransfer</name>
    <message>
        <source>This picture cannot be pasted: it cannot be decoded.</source>
        <translation>この画像は貼り付けできません。デコードできません。</translation>
    </message>
</context>
<context>
    <name>PropagationMap</name>
    <message>
        <source>The newest report is older than this period</source>
        <translation>最新の報告はこの期間より前のものです</translation>
    </message>
    <message numerus="yes">
        <source>%n older report(s) were left out.</source>
        <translation>
            <numerusform>古い報告%n件は省かれました。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SaveAllLine</name>
    <message>
        <source>%1 of %2 pictures have been saved</source>
        <translation>%2 枚中 %1 枚の画像を保存しました</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
</context>
<context>
    <name>SaveLine</name>
    <message>
        <source>%1 could not be written. What you have entered is still here.</source>
        <translation>%1 を書き込めませんでした。入力した内容は残っています。</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>再試行</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>保存せずに閉じる</translation>
    </message>
</context>
<context>
    <name>SetupWindows</name>
    <message>
        <source>The files have been copied to %1</source>
        <translation>ファイルを %1 にコピーしました</translation>
    </message>
    <message>
        <source>The backup is not complete. These files could not be written:</source>
        <translation>バックアップは不完全です。次のファイルを書き込めませんでした:</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>ほか %n 件</numerusform>
        </translation>
    </message>
    <message>
        <source>The help could not be opened: %1</source>
        <translation>ヘルプを開けませんでした: %1</translation>
    </message>
</context>
<context>
    <name>SignInPage</name>
    <message>
        <source>The window for web pages could not be opened.</source>
        <translation>ウェブページのウィンドウを開けませんでした。</translation>
    </message>
</context>
<context>
    <name>SignInSession</name>
    <message>
        <source>Sign in to %1</source>
        <translation>%1 にサインイン</translation>
    </message>
    <message>
        <source>Sign out of %1</source>
        <translation>%1 からサインアウト</translation>
    </message>
</context>
<context>
    <name>SiteForm</name>
    <message>
        <source>Keep, whatever the server&apos;s list says</source>
        <translation>サーバーのリストにかかわらず残す</translation>
    </message>
    <message>
        <source>Looking at the address ...</source>
        <translation>アドレスを確認しています...</translation>
    </message>
    <message>
        <source>Picture found, %1x%2.</source>
        <translation>画像が見つかりました（%1x%2）。</translation>
    </message>
    <message>
        <source>It answers, but with no picture.</source>
        <translation>応答はありますが、画像がありません。</translation>
    </message>
    <message>
        <source>Nobody answers at this address.</source>
        <translation>このアドレスからは応答がありません。</translation>
    </message>
    <message>
        <source>This is no address of the web (http or https).</source>
        <translation>これはウェブアドレス（http または https）ではありません。</translation>
    </message>
    <message>
        <source>It is polled only if it ends in image1.</source>
        <translation>末尾が image1 の場合にのみ取得されます。</translation>
    </message>
</context>
<context>
    <name>SitePicker</name>
    <message>
        <source>%1, changed, not saved</source>
        <translation>%1（変更済み、未保存）</translation>
    </message>
    <message>
        <source>Search by call or address</source>
        <translation>コールサインまたはアドレスで検索</translation>
    </message>
</context>
<context>
    <name>ThumbCell</name>
    <message>
        <source>stale</source>
        <translation>古い画像</translation>
    </message>
    <message>
        <source>marked for comparison</source>
        <translation>比較用に選択済み</translation>
    </message>
</context>
<context>
    <name>UndoLine</name>
    <message>
        <source>The page was compacted</source>
        <translation>ページの空きを詰めました</translation>
    </message>
    <message>
        <source>%1 was removed from the page</source>
        <translation>%1 をページから削除しました</translation>
    </message>
    <message>
        <source>All sites were removed from the page</source>
        <translation>すべての局をページから削除しました</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 に書き込めませんでした。</translation>
    </message>
    <message>
        <source>%1 was removed from the list of sites</source>
        <translation>%1 を局のリストから削除しました</translation>
    </message>
    <message>
        <source>The list of sites was changed</source>
        <translation>局の一覧を変更しました</translation>
    </message>
    <message>
        <source>Sites added: %1, removed: %2</source>
        <translation>追加した局：%1、削除した局：%2</translation>
    </message>
</context>
<context>
    <name>WebPage</name>
    <message>
        <source>Not opened: %1</source>
        <translation>開きませんでした: %1</translation>
    </message>
    <message>
        <source>Pages get no files here.</source>
        <translation>ここではページにファイルを渡せません。</translation>
    </message>
    <message>
        <source>Answered with no: %1</source>
        <translation>「いいえ」と答えました: %1</translation>
    </message>
    <message>
        <source>Not answered: %1</source>
        <translation>答えませんでした: %1</translation>
    </message>
    <message>
        <source>Refused, its certificate does not hold: %1</source>
        <translation>証明書が正しくないため拒否しました: %1</translation>
    </message>
</context>
<context>
    <name>WebWindow</name>
    <message>
        <source>Back</source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>再読み込み</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>切り取り</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>貼り付け</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>すべて選択</translation>
    </message>
    <message>
        <source>Encrypted</source>
        <translation>暗号化あり</translation>
    </message>
    <message>
        <source>Not encrypted</source>
        <translation>暗号化なし</translation>
    </message>
    <message>
        <source>Not trusted</source>
        <translation>信頼できません</translation>
    </message>
    <message>
        <source>Connection</source>
        <translation>接続</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>アドレス</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>ページ</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>メッセージ</translation>
    </message>
    <message>
        <source>The page has stopped. Reload shows it again.</source>
        <translation>ページが停止しました。再読み込みで再び表示されます。</translation>
    </message>
</context>
<context>
    <name>frmMapPropagation</name>
    <message>
        <source>Band</source>
        <translation>バンド</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>モード</translation>
    </message>
</context>
<context>
    <name>frmStView</name>
    <message>
        <source>The page has stopped. F5 shows it again.</source>
        <translation>ページが停止しました。F5キーで再表示します。</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>ページ</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>メッセージ</translation>
    </message>
</context>
<context>
    <name>frmWmp</name>
    <message>
        <source>The film does not begin.</source>
        <translation>映像が始まりません。</translation>
    </message>
    <message>
        <source>This film cannot be played: its file is gone, or too large.</source>
        <translation>この映像を再生できません。ファイルがないか、大きすぎます。</translation>
    </message>
    <message>
        <source>Films are not played: this system has no sandbox for the player (no seccomp filters).</source>
        <translation>映像は再生されません。このシステムにはプレーヤー用のサンドボックスがありません (seccompフィルターなし)。</translation>
    </message>
    <message>
        <source>Films of this kind cannot be played. What is missing: %1</source>
        <translation>この種類の映像を再生できません。不足しているもの: %1</translation>
    </message>
    <message>
        <source>This film cannot be played: it is damaged, or no film.</source>
        <translation>この映像を再生できません。壊れているか、映像ではありません。</translation>
    </message>
    <message>
        <source>This film cannot be played. What may be missing: %1</source>
        <translation>この映像を再生できません。不足している可能性があるもの: %1</translation>
    </message>
    <message>
        <source>Film</source>
        <translation>映像</translation>
    </message>
    <message>
        <source>Open with the desktop&apos;s player</source>
        <translation>デスクトップのプレーヤーで開く</translation>
    </message>
    <message>
        <source>There is no sound: this system has no device for it.</source>
        <translation>音声はありません。このシステムには音声デバイスがありません。</translation>
    </message>
    <message>
        <source>This film has no sound.</source>
        <translation>この映像には音声がありません。</translation>
    </message>
</context>
</TS>
