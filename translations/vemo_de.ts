<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>CopyFolder</name>
    <message>
        <source>%1 is not the folder any more that it was at the beginning.</source>
        <translation>%1 ist nicht mehr der Ordner, der er zu Beginn war.</translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be written to: %2.</source>
        <translation>In den Ordner %1 kann nicht geschrieben werden: %2.</translation>
    </message>
</context>
<context>
    <name>FileCopier</name>
    <message>
        <source>%1 can&apos;t be written: %2.</source>
        <translation>%1 kann nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read.</source>
        <translation>%1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>There is not enough room for %1: it needs %2 MB, %3 MB are free.</source>
        <translation>Für %1 ist nicht genug Platz: %2 MB werden gebraucht, %3 MB sind frei.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be copied to %2: %3.</source>
        <translation>%1 kann nicht nach %2 kopiert werden: %3.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read: %2.</source>
        <translation>%1 kann nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read back: %2.</source>
        <translation>%1 kann nicht zurückgelesen werden: %2.</translation>
    </message>
    <message>
        <source>%1 did not come back from the disk as it was written.</source>
        <translation>%1 kam nicht so vom Datenträger zurück, wie es geschrieben wurde.</translation>
    </message>
    <message>
        <source>%1 changed while it was copied.</source>
        <translation>%1 hat sich während des Kopierens geändert.</translation>
    </message>
    <message>
        <source>%1 has %2 bytes instead of %3.</source>
        <translation>%1 hat %2 statt %3 Byte.</translation>
    </message>
    <message>
        <source>The folder of %1 was taken away or replaced while copying.</source>
        <translation>Der Ordner von %1 wurde während des Kopierens entfernt oder ersetzt.</translation>
    </message>
</context>
<context>
    <name>PlainFile</name>
    <message>
        <source>%1 can&apos;t be read: %2.</source>
        <translation>%1 kann nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>%1 is not there.</source>
        <translation>%1 ist nicht vorhanden.</translation>
    </message>
    <message>
        <source>%1 is not a file.</source>
        <translation>%1 ist keine Datei.</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Page %1</source>
        <translation>Seite %1</translation>
    </message>
</context>
<context>
    <name>VCOMMON::FileChecksum</name>
    <message>
        <source>%1 can&apos;t be read: %2.</source>
        <translation>%1 kann nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>SHA-256 is not available.</source>
        <translation>SHA-256 ist nicht verfügbar.</translation>
    </message>
</context>
<context>
    <name>VCOMMON::LocalFolderScan</name>
    <message>
        <source>The folder %1 is not there or can&apos;t be read.</source>
        <translation>Der Ordner %1 ist nicht vorhanden oder nicht lesbar.</translation>
    </message>
    <message>
        <source>The folder %1 has more than %2 files; the rest was left out.</source>
        <translation>Der Ordner %1 enthält mehr als %2 Dateien; der Rest wurde ausgelassen.</translation>
    </message>
    <message>
        <source>Another disk lies at %1; the files known there are kept in the list.</source>
        <translation>Unter %1 liegt ein anderer Datenträger; die dort bekannten Dateien bleiben in der Liste.</translation>
    </message>
</context>
<context>
    <name>VCOMMON::RecordingFile</name>
    <message>
        <source>The file is empty.</source>
        <translation>Die Datei ist leer.</translation>
    </message>
    <message>
        <source>This is no MP4 file.</source>
        <translation>Dies ist keine MP4-Datei.</translation>
    </message>
    <message>
        <source>The file was not finished; what there is of it can be played.</source>
        <translation>Die Datei wurde nicht abgeschlossen; der vorhandene Teil kann abgespielt werden.</translation>
    </message>
    <message>
        <source>The file is cut off: %1 of at least %2 bytes are there.</source>
        <translation>Die Datei ist abgeschnitten: %1 von mindestens %2 Byte sind vorhanden.</translation>
    </message>
    <message>
        <source>The index of the file is missing: it was not finished, or its end is damaged.</source>
        <translation>Der Index der Datei fehlt: Sie wurde nicht abgeschlossen, oder ihr Ende ist beschädigt.</translation>
    </message>
    <message>
        <source>The file holds no pictures.</source>
        <translation>Die Datei enthält keine Bilder.</translation>
    </message>
    <message>
        <source>The file can&apos;t be read.</source>
        <translation>Die Datei kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The file is not there.</source>
        <translation>Die Datei ist nicht vorhanden.</translation>
    </message>
</context>
<context>
    <name>VCOMMON::SnapImageFile</name>
    <message>
        <source>The file is empty.</source>
        <translation>Die Datei ist leer.</translation>
    </message>
    <message>
        <source>This is no picture.</source>
        <translation>Dies ist kein Bild.</translation>
    </message>
    <message>
        <source>The end of the picture is missing.</source>
        <translation>Das Ende des Bildes fehlt.</translation>
    </message>
    <message>
        <source>The file can&apos;t be read.</source>
        <translation>Die Datei kann nicht gelesen werden.</translation>
    </message>
</context>
<context>
    <name>VCOMMON::SnapImageWriter</name>
    <message>
        <source>The picture for %1 can&apos;t be encoded.</source>
        <translation>Das Bild für %1 kann nicht kodiert werden.</translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be made.</source>
        <translation>Der Ordner %1 kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be written: %2.</source>
        <translation>%1 kann nicht geschrieben werden: %2.</translation>
    </message>
</context>
<context>
    <name>vemo_base::BaseTools</name>
    <message>
        <source>Channel %1</source>
        <translation>Kanal %1</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Platform Storage</source>
        <translation>Plattformspeicher</translation>
    </message>
    <message>
        <source>Edge Card</source>
        <translation>Gerätespeicherkarte</translation>
    </message>
    <message>
        <source>Cloud</source>
        <translation>Cloud</translation>
    </message>
    <message>
        <source>This Computer</source>
        <translation>Dieser Computer</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
</context>
<context>
    <name>vemo_base::ClientTree</name>
    <message>
        <source>Channels</source>
        <translation>Kanäle</translation>
    </message>
</context>
<context>
    <name>vemo_base::ClientTreeWt</name>
    <message>
        <source>Filter by channel name</source>
        <translation>Nach Kanalname filtern</translation>
    </message>
    <message>
        <source>One list of all channels by name</source>
        <translation>Eine Liste aller Kanäle nach Namen</translation>
    </message>
</context>
<context>
    <name>vemo_base::ClockSlider</name>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Lost in transfer %1 to %2</source>
        <translation>Bei der Übertragung verloren: %1 bis %2</translation>
    </message>
    <message>
        <source>No recording %1 to %2</source>
        <translation>Keine Aufnahme: %1 bis %2</translation>
    </message>
</context>
<context>
    <name>vemo_base::DateSelectLineEdit</name>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Show the calendar</source>
        <translation>Kalender anzeigen</translation>
    </message>
</context>
<context>
    <name>vemo_base::DatetimeSpanSelWt</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Gestern</translation>
    </message>
    <message>
        <source>Last 7 days</source>
        <translation>Letzte 7 Tage</translation>
    </message>
    <message>
        <source>Last 30 days</source>
        <translation>Letzte 30 Tage</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>Beginn</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>%1, clock time</source>
        <translation>%1, Uhrzeit</translation>
    </message>
    <message>
        <source>%1, day</source>
        <translation>%1, Tag</translation>
    </message>
    <message>
        <source>1 day</source>
        <translation>1 Tag</translation>
    </message>
    <message>
        <source>%1 days</source>
        <translation>%1 Tage</translation>
    </message>
    <message>
        <source>This clock time does not exist on that day.</source>
        <translation>Diese Uhrzeit gibt es an dem Tag nicht.</translation>
    </message>
    <message>
        <source>The end must lie behind the begin.</source>
        <translation>Das Ende muss nach dem Beginn liegen.</translation>
    </message>
    <message>
        <source>At most %1 days can be searched at once.</source>
        <translation>Höchstens %1 Tage können auf einmal durchsucht werden.</translation>
    </message>
</context>
<context>
    <name>vemo_base::DayCalendar</name>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Month before</source>
        <translation>Voriger Monat</translation>
    </message>
    <message>
        <source>Next month</source>
        <translation>Nächster Monat</translation>
    </message>
</context>
<context>
    <name>vemo_base::DisabledWaitingWt</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>vemo_base::DiskFreeSpaceBar</name>
    <message>
        <source>%1 GB</source>
        <translation>%1 GB</translation>
    </message>
    <message>
        <source>%1 TB</source>
        <translation>%1 TB</translation>
    </message>
    <message>
        <source>Asking the disk...</source>
        <translation>Datenträger wird abgefragt...</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read</source>
        <translation>%1 kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>%1 %2 free of %3</source>
        <translation>%1 %2 frei von %3</translation>
    </message>
    <message>
        <source>%1, full</source>
        <translation>%1, voll</translation>
    </message>
    <message>
        <source>%1, low</source>
        <translation>%1, wenig frei</translation>
    </message>
    <message>
        <source>%1
%2</source>
        <translation>%1
%2</translation>
    </message>
</context>
<context>
    <name>vemo_base::ImageViewerDlg</name>
    <message>
        <source>This image can&apos;t be read</source>
        <translation>Dieses Bild kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation>%1 wird geöffnet</translation>
    </message>
    <message>
        <source>%1 x %2</source>
        <translation>%1 x %2</translation>
    </message>
</context>
<context>
    <name>vemo_base::LocalPlaybackDlg</name>
    <message>
        <source>Opening %1</source>
        <translation>%1 wird geöffnet</translation>
    </message>
    <message>
        <source>Snapshot saved as %1</source>
        <translation>Einzelbild gespeichert als %1</translation>
    </message>
    <message>
        <source>This recording has sound only.</source>
        <translation>Diese Aufnahme enthält nur Ton.</translation>
    </message>
</context>
<context>
    <name>vemo_base::LocalViewTree</name>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>vemo_base::MpvWorker</name>
    <message>
        <source>The player&apos;s library can&apos;t be loaded: %1.</source>
        <translation>Die Bibliothek des Players kann nicht geladen werden: %1.</translation>
    </message>
    <message>
        <source>The player can&apos;t be started: there is not enough memory.</source>
        <translation>Der Player kann nicht gestartet werden: Es ist nicht genug Arbeitsspeicher frei.</translation>
    </message>
    <message>
        <source>The player can&apos;t be started: %1.</source>
        <translation>Der Player kann nicht gestartet werden: %1.</translation>
    </message>
    <message>
        <source>The player can&apos;t show pictures: %1.</source>
        <translation>Der Player kann keine Bilder anzeigen: %1.</translation>
    </message>
    <message>
        <source>%1 is not there any more.</source>
        <translation>%1 ist nicht mehr vorhanden.</translation>
    </message>
    <message>
        <source>%1 is not a file.</source>
        <translation>%1 ist keine Datei.</translation>
    </message>
    <message>
        <source>%1 is empty.</source>
        <translation>%1 ist leer.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read: you have no permission.</source>
        <translation>%1 kann nicht gelesen werden: Die Berechtigung fehlt.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read as a video: it is none, or its beginning or its end is damaged.</source>
        <translation>%1 kann nicht als Video gelesen werden: Es ist keines, oder sein Anfang oder Ende ist beschädigt.</translation>
    </message>
    <message>
        <source>%1 has neither a picture nor sound that can be played.</source>
        <translation>%1 enthält weder Bild noch Ton, die abgespielt werden können.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be opened. It may be damaged, or another program holds it.</source>
        <translation>%1 kann nicht geöffnet werden. Möglicherweise ist es beschädigt oder von einem anderen Programm belegt.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be played: %2.</source>
        <translation>%1 kann nicht abgespielt werden: %2.</translation>
    </message>
    <message>
        <source>The player gives no picture: %1.</source>
        <translation>Der Player liefert kein Bild: %1.</translation>
    </message>
</context>
<context>
    <name>vemo_base::NavigationEntry</name>
    <message>
        <source>Group, open</source>
        <translation>Gruppe, geöffnet</translation>
    </message>
    <message>
        <source>Group, closed</source>
        <translation>Gruppe, geschlossen</translation>
    </message>
    <message>
        <source>Current page</source>
        <translation>Aktuelle Seite</translation>
    </message>
</context>
<context>
    <name>vemo_base::NavigationWidget</name>
    <message>
        <source>Navigation</source>
        <translation>Navigation</translation>
    </message>
</context>
<context>
    <name>vemo_base::PageEditWt</name>
    <message>
        <source>Go to</source>
        <translation>Gehe zu</translation>
    </message>
    <message>
        <source>Entries on a page</source>
        <translation>Einträge pro Seite</translation>
    </message>
    <message>
        <source>%1 / page</source>
        <translation>%1 / Seite</translation>
    </message>
    <message>
        <source>Go to page</source>
        <translation>Gehe zu Seite</translation>
    </message>
    <message>
        <source>First page</source>
        <translation>Erste Seite</translation>
    </message>
    <message>
        <source>Previous page</source>
        <translation>Vorige Seite</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>Nächste Seite</translation>
    </message>
    <message>
        <source>Last page</source>
        <translation>Letzte Seite</translation>
    </message>
    <message>
        <source>0 entries</source>
        <translation>0 Einträge</translation>
    </message>
    <message>
        <source>%1-%2 of %3</source>
        <translation>%1-%2 von %3</translation>
    </message>
</context>
<context>
    <name>vemo_base::PictureFile</name>
    <message>
        <source>This recording has no picture yet.</source>
        <translation>Diese Aufnahme hat noch kein Bild.</translation>
    </message>
    <message>
        <source>The file is not there or may not be read.</source>
        <translation>Die Datei ist nicht vorhanden oder darf nicht gelesen werden.</translation>
    </message>
    <message>
        <source>This image can&apos;t be read</source>
        <translation>Dieses Bild kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>The image is too large to be shown: %1 x %2 pixels.</source>
        <translation>Das Bild ist zu groß zum Anzeigen: %1 x %2 Pixel.</translation>
    </message>
    <message>
        <source>The image file is too large to be shown.</source>
        <translation>Die Bilddatei ist zu groß zum Anzeigen.</translation>
    </message>
</context>
<context>
    <name>vemo_base::PlaybackTexts</name>
    <message>
        <source>1 gap</source>
        <translation>1 Lücke</translation>
    </message>
    <message>
        <source>%1 gaps</source>
        <translation>%1 Lücken</translation>
    </message>
</context>
<context>
    <name>vemo_base::PlayerTitleBar</name>
    <message>
        <source>Close (Esc)</source>
        <translation>Schließen (Esc)</translation>
    </message>
</context>
<context>
    <name>vemo_base::ProgressButton</name>
    <message>
        <source>%1 %2%</source>
        <translation>%1 %2%</translation>
    </message>
</context>
<context>
    <name>vemo_base::SearchBox</name>
    <message>
        <source>Clear the filter</source>
        <translation>Filter zurücksetzen</translation>
    </message>
</context>
<context>
    <name>vemo_base::SettingToolWt</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>vemo_base::SpanWords</name>
    <message>
        <source>%1 To %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>%1 h</source>
        <translation>%1 h</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1 h %2 min</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>%1 min %2 s</source>
        <translation>%1 min %2 s</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>1 recording</source>
        <translation>1 Aufnahme</translation>
    </message>
    <message>
        <source>%1 recordings</source>
        <translation>%1 Aufnahmen</translation>
    </message>
    <message>
        <source>1 channel</source>
        <translation>1 Kanal</translation>
    </message>
    <message>
        <source>%1 channels</source>
        <translation>%1 Kanäle</translation>
    </message>
    <message>
        <source>Clocks went forward here, from %1 to %2.</source>
        <translation>Hier wurden die Uhren von %1 auf %2 vorgestellt.</translation>
    </message>
    <message>
        <source>This hour passed twice, at %1 and at %2.</source>
        <translation>Diese Stunde gab es zweimal, mit %1 und mit %2.</translation>
    </message>
</context>
<context>
    <name>vemo_base::TableOperWtStyle</name>
    <message>
        <source>Check all shown rows</source>
        <translation>Alle angezeigten Zeilen markieren</translation>
    </message>
</context>
<context>
    <name>vemo_base::ToastWt</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>%1 (%2 times)</source>
        <translation>%1 (%2-mal)</translation>
    </message>
</context>
<context>
    <name>vemo_base::TransportBar</name>
    <message>
        <source>Play (Space)</source>
        <translation>Abspielen (Leertaste)</translation>
    </message>
    <message>
        <source>Mute (M)</source>
        <translation>Ton aus (M)</translation>
    </message>
    <message>
        <source>Snapshot</source>
        <translation>Einzelbild</translation>
    </message>
    <message>
        <source>10 s back (Left arrow)</source>
        <translation>10 s zurück (Pfeil links)</translation>
    </message>
    <message>
        <source>Frame back (comma)</source>
        <translation>Ein Bild zurück (Komma)</translation>
    </message>
    <message>
        <source>Frame on (period)</source>
        <translation>Ein Bild vor (Punkt)</translation>
    </message>
    <message>
        <source>10 s on (Right arrow)</source>
        <translation>10 s vor (Pfeil rechts)</translation>
    </message>
    <message>
        <source>Stop and go to the beginning</source>
        <translation>Anhalten und zum Anfang</translation>
    </message>
    <message>
        <source>Speed ([ slower, ] faster)</source>
        <translation>Tempo ([ langsamer, ] schneller)</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>Save the shown picture (S)</source>
        <translation>Angezeigtes Bild speichern (S)</translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Full screen (F)</source>
        <translation>Vollbild (F)</translation>
    </message>
    <message>
        <source>Pause (Space)</source>
        <translation>Pause (Leertaste)</translation>
    </message>
    <message>
        <source>The recording has no sound</source>
        <translation>Die Aufnahme hat keinen Ton</translation>
    </message>
    <message>
        <source>Sound on (M)</source>
        <translation>Ton ein (M)</translation>
    </message>
    <message>
        <source>Leave full screen (F)</source>
        <translation>Vollbild verlassen (F)</translation>
    </message>
</context>
<context>
    <name>vemo_base::VMessageBox</name>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>Please confirm</source>
        <translation>Bitte bestätigen</translation>
    </message>
</context>
<context>
    <name>vemo_base::ViewerBar</name>
    <message>
        <source>Previous (Left arrow)</source>
        <translation>Voriges (Pfeil links)</translation>
    </message>
    <message>
        <source>Next (Right arrow)</source>
        <translation>Nächstes (Pfeil rechts)</translation>
    </message>
    <message>
        <source>Zoom out (-)</source>
        <translation>Verkleinern (-)</translation>
    </message>
    <message>
        <source>Zoom in (+)</source>
        <translation>Vergrößern (+)</translation>
    </message>
    <message>
        <source>Fit into the window (0)</source>
        <translation>In das Fenster einpassen (0)</translation>
    </message>
    <message>
        <source>Actual size (1)</source>
        <translation>Originalgröße (1)</translation>
    </message>
    <message>
        <source>Turn left (Shift+R)</source>
        <translation>Nach links drehen (Umschalt+R)</translation>
    </message>
    <message>
        <source>Turn right (R)</source>
        <translation>Nach rechts drehen (R)</translation>
    </message>
    <message>
        <source>Copy (Ctrl+C)</source>
        <translation>Kopieren (Strg+C)</translation>
    </message>
    <message>
        <source>Open the folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Full screen (F)</source>
        <translation>Vollbild (F)</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
    <message>
        <source>Leave full screen (F)</source>
        <translation>Vollbild verlassen (F)</translation>
    </message>
</context>
<context>
    <name>vemo_client</name>
    <message>
        <source>Plans backups, a task for each channel and day, and works them off while no window of the data folder is open.

Actions:
  list    tells the tasks, and how much of what the recorder holds is safe
  add     stores a task for each channel and day
  run     works off the day&apos;s tasks and those that were missed, oldest first, and ends
  stop    lets a run that is at work end with what it has
  export  copies the finished files of a day, with their checksums
run ends with 8 when a task failed or stayed incomplete in it.
</source>
        <translation>Plant Sicherungen, einen Auftrag je Kanal und Tag, und arbeitet sie ab, während kein Fenster des
Datenordners offen ist.

Aktionen:
  list    nennt die Aufträge und wie viel von dem, was der Rekorder hat, gesichert ist
  add     speichert einen Auftrag je Kanal und Tag
  run     arbeitet die Aufträge des Tages und die versäumten ab, älteste zuerst, und endet
  stop    lässt einen laufenden Lauf mit dem enden, was er hat
  export  kopiert die fertigen Dateien eines Tages mit ihren Prüfsummen
run endet mit 8, wenn darin ein Auftrag fehlschlug oder unvollständig blieb.
</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a day; days are written as 2026-01-10.</source>
        <translation>&quot;%1&quot; ist kein Tag; Tage werden als 2026-01-10 geschrieben.</translation>
    </message>
    <message>
        <source>--%1 takes a number from 1 to %2.</source>
        <translation>--%1 erwartet eine Zahl von 1 bis %2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a span of the day; spans are written as 08:00-12:00.</source>
        <translation>&quot;%1&quot; ist kein Zeitraum des Tages; Zeiträume werden als 08:00-12:00 geschrieben.</translation>
    </message>
    <message>
        <source>The spans of --segments overlap at %1; an end takes its whole minute in.</source>
        <translation>Die Zeiträume von --segments überschneiden sich bei %1; ein Ende schließt seine ganze Minute ein.</translation>
    </message>
    <message>
        <source>At most %1 spans a day.</source>
        <translation>Höchstens %1 Zeiträume je Tag.</translation>
    </message>
    <message>
        <source>Works on the recordings or the snapshots that this computer holds.

Actions, after &quot;recordings&quot; or &quot;snapshots&quot;:
  list     tells each file with its channel and its times, broken ones too
  save-as  copies files into a folder, named by channel and time
  delete   deletes files, into the recycle bin where there is one, and forgets them
  rescan   finds what was added or removed without the client, of both kinds
list --json writes an object a line: path, channel, begin and end (of a snapshot: captured),
bytes, ok; where ok is false, problem tells why; guessed is true for a span that the file does
not tell. delete and rescan need the window of the data folder closed. The exit code is 8 when a
file could not be saved or deleted, or a folder not be looked through.
</source>
        <translation>Arbeitet mit den Aufnahmen oder den Einzelbildern auf diesem Computer.

Aktionen, nach &quot;recordings&quot; oder &quot;snapshots&quot;:
  list     nennt jede Datei mit ihrem Kanal und ihren Zeiten, auch defekte
  save-as  kopiert Dateien in einen Ordner, benannt nach Kanal und Zeit
  delete   löscht Dateien, in den Papierkorb, wo es einen gibt, und vergisst sie
  rescan   findet, was ohne den Client hinzukam oder entfernt wurde, beider Arten
list --json gibt ein Objekt je Zeile aus: path, channel, begin und end (eines Einzelbilds:
captured), bytes, ok; wo ok false ist, nennt problem den Grund; guessed ist true bei einem
Zeitraum, den die Datei nicht nennt. Bei delete und rescan muss das Fenster des Datenordners
geschlossen sein. Der Exit-Code ist 8, wenn eine Datei nicht gespeichert oder gelöscht oder ein
Ordner nicht durchsucht werden konnte.
</translation>
    </message>
    <message>
        <source>The end, %1, is not after the begin, %2.</source>
        <translation>Das Ende, %1, liegt nicht nach dem Beginn, %2.</translation>
    </message>
    <message>
        <source>Give either --all or what to choose by: --begin, --end, --channel.</source>
        <translation>Geben Sie entweder --all an oder eine Auswahl mit --begin, --end, --channel.</translation>
    </message>
    <message>
        <source>--yes is missing; list tells what would be deleted.</source>
        <translation>--yes fehlt; list nennt, was gelöscht würde.</translation>
    </message>
    <message>
        <source>Downloads what a recorder has of a span of time, as MP4.</source>
        <translation>Lädt herunter, was ein Rekorder aus einem Zeitraum hat, als MP4.</translation>
    </message>
    <message>
        <source>Lists the recordings of a channel in a span of time.</source>
        <translation>Listet die Aufnahmen eines Kanals in einem Zeitraum auf.</translation>
    </message>
    <message>
        <source>See vemo_client %1 --help.</source>
        <translation>Siehe vemo_client %1 --help.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is one argument too many.</source>
        <translation>&quot;%1&quot; ist ein Argument zu viel.</translation>
    </message>
    <message>
        <source>Works on the stored downloads of a data folder while no window of it is open.

Actions:
  list    tells every task
  add     stores a download of a span, or of one recording, for each channel
  pause   keeps waiting tasks from being started
  resume  lets paused tasks wait again
  cancel  forgets waiting and paused tasks
  retry   lets failed tasks wait again
  clear   takes finished and failed tasks off the list; files stay
  run     works the waiting tasks off, five at a time, and ends when none is left to do
run ends with 8 when a task failed or came out incomplete in it. Passwords are kept in the
desktop&apos;s keyring, or in an encrypted file; VEMO_SECRETS_PASSWORD puts a password on that file,
VEMO_KEYRING=off leaves the keyring alone.
</source>
        <translation>Bearbeitet gespeicherte Downloads eines Datenordners, während kein Fenster davon offen ist.

Aktionen:
  list    nennt jeden Auftrag
  add     speichert je Kanal einen Download eines Zeitraums oder einer Aufnahme
  pause   hält wartende Aufträge vom Start ab
  resume  lässt pausierte Aufträge wieder warten
  cancel  verwirft wartende und pausierte Aufträge
  retry   lässt fehlgeschlagene Aufträge wieder warten
  clear   nimmt fertige und fehlgeschlagene Aufträge aus der Liste; Dateien bleiben
  run     arbeitet die wartenden Aufträge ab, fünf zugleich, und endet, wenn keiner übrig ist
run endet mit 8, wenn darin ein Auftrag fehlschlug oder unvollständig blieb. Passwörter liegen
im Schlüsselbund der Arbeitsumgebung oder in einer verschlüsselten Datei; VEMO_SECRETS_PASSWORD
schützt diese Datei mit einem Passwort, VEMO_KEYRING=off lässt den Schlüsselbund außen vor.
</translation>
    </message>
    <message>
        <source>--ca is not kept for stored recorders; use --pin.</source>
        <translation>--ca wird für gespeicherte Rekorder nicht aufbewahrt; verwenden Sie --pin.</translation>
    </message>
    <message>
        <source>The name of a recording has at most %1 characters.</source>
        <translation>Der Name einer Aufnahme hat höchstens %1 Zeichen.</translation>
    </message>
    <message>
        <source>A recording belongs to one channel; give one --channel with --file.</source>
        <translation>Eine Aufnahme gehört zu einem Kanal; geben Sie mit --file genau ein --channel an.</translation>
    </message>
    <message>
        <source>This name of a recording does not tell its span; give --begin and --end.</source>
        <translation>Dieser Name einer Aufnahme nennt ihren Zeitraum nicht; geben Sie --begin und --end an.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not the id of a task.</source>
        <translation>&quot;%1&quot; ist keine Auftrags-ID.</translation>
    </message>
    <message>
        <source>Give either --id or --all.</source>
        <translation>Geben Sie entweder --id oder --all an.</translation>
    </message>
    <message>
        <source>less than 1 GiB is free on the disk of the file, so the download was not begun.</source>
        <translation>auf dem Datenträger der Datei ist weniger als 1 GiB frei, daher wurde der Download nicht begonnen.</translation>
    </message>
    <message>
        <source>the download could not be begun.</source>
        <translation>der Download konnte nicht begonnen werden.</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source> and %1 more</source>
        <translation> und %1 weitere</translation>
    </message>
    <message>
        <source>the recorder has footage of %1%2 that did not arrive; what arrived is in %3.</source>
        <translation>der Rekorder hat Aufnahmen von %1%2, die nicht ankamen; was ankam, liegt in %3.</translation>
    </message>
    <message>
        <source>the stream broke off at %1; what arrived until then is in %2.</source>
        <translation>die Übertragung brach bei %1 ab; was bis dahin ankam, liegt in %2.</translation>
    </message>
    <message>
        <source>the stream broke off before the first picture.</source>
        <translation>die Übertragung brach vor dem ersten Bild ab.</translation>
    </message>
    <message>
        <source>the recorder lists recordings for the span, but sent no picture of them.</source>
        <translation>der Rekorder nennt Aufnahmen für den Zeitraum, hat aber kein Bild davon gesendet.</translation>
    </message>
    <message>
        <source>the recorder sent nothing for %1 to %2.</source>
        <translation>der Rekorder hat für %1 bis %2 nichts gesendet.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be written.</source>
        <translation>%1 kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>the disk is full.</source>
        <translation>der Datenträger ist voll.</translation>
    </message>
    <message>
        <source>no recording from %1 to %2.</source>
        <translation>keine Aufnahme von %1 bis %2.</translation>
    </message>
    <message>
        <source>the recorder refused the login.</source>
        <translation>der Rekorder hat die Anmeldung abgelehnt.</translation>
    </message>
    <message>
        <source>the recorder serves no further stream at the moment.</source>
        <translation>der Rekorder liefert im Moment keine weitere Übertragung.</translation>
    </message>
    <message>
        <source>the stream could not be opened.</source>
        <translation>die Übertragung konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>the download failed.</source>
        <translation>der Download ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Wrong login</source>
        <translation>Falsche Anmeldung</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>Gesperrt</translation>
    </message>
    <message>
        <source>Not activated</source>
        <translation>Nicht aktiviert</translation>
    </message>
    <message>
        <source>Connection limit</source>
        <translation>Verbindungsgrenze</translation>
    </message>
    <message>
        <source>Certificate</source>
        <translation>Zertifikat</translation>
    </message>
    <message>
        <source>Offline</source>
        <translation>Offline</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>The recorder refused the login</source>
        <translation>Der Rekorder hat die Anmeldung abgelehnt</translation>
    </message>
    <message>
        <source>The account is locked</source>
        <translation>Das Konto ist gesperrt</translation>
    </message>
    <message>
        <source>The recorder is not activated</source>
        <translation>Der Rekorder ist nicht aktiviert</translation>
    </message>
    <message>
        <source>The recorder takes no more connections</source>
        <translation>Der Rekorder nimmt keine weiteren Verbindungen an</translation>
    </message>
    <message>
        <source>The certificate is not trusted</source>
        <translation>Dem Zertifikat wird nicht vertraut</translation>
    </message>
    <message>
        <source>The recorder can&apos;t be reached</source>
        <translation>Der Rekorder ist nicht erreichbar</translation>
    </message>
    <message>
        <source>The recorder does not answer</source>
        <translation>Der Rekorder antwortet nicht</translation>
    </message>
    <message>
        <source>The connection broke off</source>
        <translation>Die Verbindung ist abgebrochen</translation>
    </message>
    <message>
        <source>No recorder answers at this address</source>
        <translation>Unter dieser Adresse antwortet kein Rekorder</translation>
    </message>
    <message>
        <source>The recorder speaks another language</source>
        <translation>Der Rekorder spricht ein anderes Protokoll</translation>
    </message>
    <message>
        <source>The answer can&apos;t be read</source>
        <translation>Die Antwort ist nicht lesbar</translation>
    </message>
    <message>
        <source>The login failed</source>
        <translation>Die Anmeldung ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>Check user and password. Many recorders lock the account after a few wrong tries.</source>
        <translation>Prüfen Sie Benutzer und Passwort. Viele Rekorder sperren das Konto nach einigen Fehlversuchen.</translation>
    </message>
    <message>
        <source>Wait until the recorder unlocks it, often 30 min, then try again.</source>
        <translation>Warten Sie, bis der Rekorder es entsperrt, oft 30 min, und versuchen Sie es dann erneut.</translation>
    </message>
    <message>
        <source>Give it its first password on its own screen or web page, then try again.</source>
        <translation>Vergeben Sie sein erstes Passwort an seinem Bildschirm oder auf seiner Webseite, und versuchen Sie es dann erneut.</translation>
    </message>
    <message>
        <source>Close other programs that are connected to it. It is tried again by itself.</source>
        <translation>Schließen Sie andere Programme, die mit ihm verbunden sind. Es wird automatisch erneut versucht.</translation>
    </message>
    <message>
        <source>Nothing was sent to it. Check the address, or ask who runs the recorder.</source>
        <translation>Es wurde nichts an ihn gesendet. Prüfen Sie die Adresse, oder fragen Sie den Betreiber des Rekorders.</translation>
    </message>
    <message>
        <source>Check address, cable and power. It is tried again by itself.</source>
        <translation>Prüfen Sie Adresse, Kabel und Stromversorgung. Es wird automatisch erneut versucht.</translation>
    </message>
    <message>
        <source>Check address and port, and whether ONVIF is switched on in the recorder&apos;s settings.</source>
        <translation>Prüfen Sie Adresse und Port und ob ONVIF in den Einstellungen des Rekorders eingeschaltet ist.</translation>
    </message>
    <message>
        <source>Try again. If it stays so, the recorder&apos;s own log tells more.</source>
        <translation>Versuchen Sie es erneut. Bleibt es dabei, sagt das Protokoll des Rekorders mehr.</translation>
    </message>
    <message>
        <source>The recorder shows another key than the trusted one</source>
        <translation>Der Rekorder zeigt einen anderen Schlüssel als den vertrauten</translation>
    </message>
    <message>
        <source>Its certificate was renewed, or something stands between you and it. Nothing was sent to it.</source>
        <translation>Sein Zertifikat wurde erneuert, oder etwas steht zwischen Ihnen und ihm. Es wurde nichts an ihn gesendet.</translation>
    </message>
    <message>
        <source>SHA-256 of the new key:</source>
        <translation>SHA-256 des neuen Schlüssels:</translation>
    </message>
    <message>
        <source>The recorder&apos;s key is not known yet</source>
        <translation>Der Schlüssel des Rekorders ist noch nicht bekannt</translation>
    </message>
    <message>
        <source>SHA-256 of the key:</source>
        <translation>SHA-256 des Schlüssels:</translation>
    </message>
    <message>
        <source>The address carries a login. Put user and password into their own fields.</source>
        <translation>Die Adresse enthält Anmeldedaten. Tragen Sie Benutzer und Passwort in ihre eigenen Felder ein.</translation>
    </message>
    <message>
        <source>The address names no host. Example: 192.168.1.20</source>
        <translation>Die Adresse nennt keinen Host. Beispiel: 192.168.1.20</translation>
    </message>
    <message>
        <source>The port must be a number from 1 to 65535.</source>
        <translation>Der Port muss eine Zahl von 1 bis 65535 sein.</translation>
    </message>
    <message>
        <source>An address of numbers has four of them from 0 to 255. Example: 192.168.1.20</source>
        <translation>Eine Adresse aus Zahlen hat vier davon, jeweils von 0 bis 255. Beispiel: 192.168.1.20</translation>
    </message>
    <message>
        <source>Works on the users who may log in to the window, for whoever owns the data folder in the operating
system; no login is asked for, as with every verb. The window has to be closed for changes.

Actions, after &quot;user&quot;:
  add       adds a user; the first one is to be an administrator. Accounts that can&apos;t be opened any
            more are kept under another name, and the new administrator begins anew
  list      tells the users and what they may do; with --json an object a line: name,
            administrator, powers, enabled, last_login
  password  sets a new password, which is the way back in for one that was forgotten
  remove    removes a user
</source>
        <translation>Verwaltet die Benutzer, die sich am Fenster anmelden dürfen, für den Besitzer des Datenordners
im Betriebssystem; wie bei jedem Befehl wird keine Anmeldung verlangt. Für Änderungen muss das
Fenster geschlossen sein.

Aktionen, nach &quot;user&quot;:
  add       fügt einen Benutzer hinzu; der erste muss Administrator sein. Konten, die sich nicht
            mehr öffnen lassen, werden unter anderem Namen aufbewahrt, und der neue Administrator
            fängt neu an
  list      nennt die Benutzer und was sie dürfen; mit --json ein Objekt je Zeile: name,
            administrator, powers, enabled, last_login
  password  setzt ein neues Passwort; so geht es weiter, wenn eines vergessen wurde
  remove    entfernt einen Benutzer
</translation>
    </message>
    <message>
        <source>Give either --administrator or --powers.</source>
        <translation>Geben Sie entweder --administrator oder --powers an.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no power; there are: %2.</source>
        <translation>&quot;%1&quot; ist kein Recht; es gibt: %2.</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Recorder</source>
        <translation>Rekorder</translation>
    </message>
    <message>
        <source>Log in again</source>
        <translation>Neu anmelden</translation>
    </message>
    <message>
        <source>No.</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Recordings</source>
        <translation>Aufnahmen</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Kanäle</translation>
    </message>
    <message>
        <source>Change...</source>
        <translation>Ändern...</translation>
    </message>
    <message>
        <source>Live view alone</source>
        <translation>Nur Live-Ansicht</translation>
    </message>
    <message>
        <source>Live view, playback and backup</source>
        <translation>Live-Ansicht, Wiedergabe und Sicherung</translation>
    </message>
    <message>
        <source>Live view and playback</source>
        <translation>Live-Ansicht und Wiedergabe</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>Geräte</translation>
    </message>
    <message>
        <source>Find on the network...</source>
        <translation>Im Netzwerk suchen...</translation>
    </message>
    <message>
        <source>Add by address...</source>
        <translation>Über Adresse hinzufügen...</translation>
    </message>
    <message>
        <source>Filter by name, address, group or channel</source>
        <translation>Nach Name, Adresse, Gruppe oder Kanal filtern</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>Aktivieren</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>Deaktivieren</translation>
    </message>
    <message>
        <source>Group...</source>
        <translation>Gruppe...</translation>
    </message>
    <message>
        <source>Remove...</source>
        <translation>Entfernen...</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>Suche läuft...</translation>
    </message>
    <message>
        <source>Searching... 1 recorder has answered.</source>
        <translation>Suche läuft... 1 Rekorder hat geantwortet.</translation>
    </message>
    <message>
        <source>Searching... %1 recorders have answered.</source>
        <translation>Suche läuft... %1 Rekorder haben geantwortet.</translation>
    </message>
    <message>
        <source>No recorder has answered.</source>
        <translation>Kein Rekorder hat geantwortet.</translation>
    </message>
    <message>
        <source>1 recorder has answered.</source>
        <translation>1 Rekorder hat geantwortet.</translation>
    </message>
    <message>
        <source>%1 recorders have answered.</source>
        <translation>%1 Rekorder haben geantwortet.</translation>
    </message>
    <message>
        <source>Compare the key with the one that the recorder shows. Nothing was sent to it so far.</source>
        <translation>Vergleichen Sie den Schlüssel mit dem, den der Rekorder anzeigt. Bisher wurde nichts an ihn gesendet.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>SHA-256 of the trusted key:</source>
        <translation>SHA-256 des vertrauten Schlüssels:</translation>
    </message>
    <message>
        <source>The address carries a password, which would be stored readable. Put it into its own field.</source>
        <translation>Die Adresse enthält ein Passwort, das lesbar gespeichert würde. Tragen Sie es in sein eigenes Feld ein.</translation>
    </message>
    <message>
        <source>There is an @ behind the host. Put user and password into their own fields, or write it as %40.</source>
        <translation>Hinter dem Host steht ein @. Tragen Sie Benutzer und Passwort in ihre eigenen Felder ein, oder schreiben Sie es als %40.</translation>
    </message>
</context>
<context>
    <name>vemo_client::AddressWatch</name>
    <message>
        <source>%1 answers at %2 now</source>
        <translation>%1 antwortet jetzt unter %2</translation>
    </message>
    <message>
        <source>It can&apos;t be reached at %1 any more. Use the new address?</source>
        <translation>Unter %1 ist er nicht mehr erreichbar. Neue Adresse verwenden?</translation>
    </message>
    <message>
        <source>Use the new address</source>
        <translation>Neue Adresse verwenden</translation>
    </message>
</context>
<context>
    <name>vemo_client::AdministratorPage</name>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>Repeat the password</source>
        <translation>Passwort wiederholen</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Design</translation>
    </message>
    <message>
        <source>Create the administrator</source>
        <translation>Administrator anlegen</translation>
    </message>
    <message>
        <source>This account manages users, recorders and storage. It is kept on this computer only.</source>
        <translation>Dieses Konto verwaltet Benutzer, Rekorder und Speicher. Es wird nur auf diesem Computer geführt.</translation>
    </message>
    <message>
        <source>User name</source>
        <translation>Benutzername</translation>
    </message>
    <message>
        <source>%1 characters or more</source>
        <translation>Mindestens %1 Zeichen</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Create and continue</source>
        <translation>Anlegen und fortfahren</translation>
    </message>
    <message>
        <source>A lost password cannot be recovered. Another administrator can set a new one.</source>
        <translation>Ein verlorenes Passwort lässt sich nicht wiederherstellen. Ein anderer Administrator kann ein neues setzen.</translation>
    </message>
    <message>
        <source>The two passwords differ</source>
        <translation>Die beiden Passwörter sind verschieden</translation>
    </message>
</context>
<context>
    <name>vemo_client::AuthForm</name>
    <message>
        <source>Step %1 of %2</source>
        <translation>Schritt %1 von %2</translation>
    </message>
</context>
<context>
    <name>vemo_client::AuthWt</name>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Every hour that matters,
safe on your own disks.</source>
        <translation>Jede Stunde, die zählt,
sicher auf Ihren eigenen Datenträgern.</translation>
    </message>
    <message>
        <source>Live view, playback, downloads and planned backup of your network recorders.</source>
        <translation>Live-Ansicht, Wiedergabe, Downloads und geplante Sicherung Ihrer Netzwerkrekorder.</translation>
    </message>
</context>
<context>
    <name>vemo_client::BackupListing</name>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>DAY</source>
        <translation>TAG</translation>
    </message>
    <message>
        <source>CHANNEL</source>
        <translation>KANAL</translation>
    </message>
    <message>
        <source>STATE</source>
        <translation>STATUS</translation>
    </message>
    <message>
        <source>SAFE</source>
        <translation>GESICHERT</translation>
    </message>
    <message>
        <source>the recorder was not asked yet</source>
        <translation>der Rekorder wurde noch nicht gefragt</translation>
    </message>
    <message>
        <source>nothing recorded</source>
        <translation>nichts aufgezeichnet</translation>
    </message>
</context>
<context>
    <name>vemo_client::BackupRun</name>
    <message>
        <source>Failed to export file:%1</source>
        <translation>Datei konnte nicht exportiert werden: %1</translation>
    </message>
    <message>
        <source>The folder for backups, %1, is not there or can&apos;t be written.</source>
        <translation>Der Ordner für Sicherungen, %1, ist nicht vorhanden oder nicht beschreibbar.</translation>
    </message>
    <message>
        <source>The folder %1 is not there or can&apos;t be written.</source>
        <translation>Der Ordner %1 ist nicht vorhanden oder nicht beschreibbar.</translation>
    </message>
    <message>
        <source>The disk space is insufficient, total file size:%1M, disk free space:%2M, disk name:%3</source>
        <translation>Nicht genug Speicherplatz. Gesamtgröße der Dateien: %1 MB, frei: %2 MB, Datenträger: %3</translation>
    </message>
    <message>
        <source>%1 tasks failed; see vemo_client backup list.</source>
        <translation>%1 Aufträge sind fehlgeschlagen; siehe vemo_client backup list.</translation>
    </message>
    <message>
        <source>Stopped; what had arrived is kept, and the rest is fetched by the next run.</source>
        <translation>Angehalten; was angekommen ist, bleibt erhalten, der Rest wird beim nächsten Lauf geholt.</translation>
    </message>
    <message>
        <source>Export backup files finished, files total count:%1, success count:%2, failure count:%3</source>
        <translation>Export der Sicherungsdateien beendet. Dateien: %1, erfolgreich: %2, fehlgeschlagen: %3</translation>
    </message>
    <message>
        <source>Interrupted; what had arrived is kept, and the rest is fetched by the next run.</source>
        <translation>Abgebrochen; was angekommen ist, bleibt erhalten, der Rest wird beim nächsten Lauf geholt.</translation>
    </message>
</context>
<context>
    <name>vemo_client::BackupVerb</name>
    <message>
        <source>Interrupted.</source>
        <translation>Abgebrochen.</translation>
    </message>
    <message>
        <source>No run of the backups is at work in this data folder.</source>
        <translation>In diesem Datenordner läuft gerade keine Sicherung.</translation>
    </message>
    <message>
        <source>No task was added: a day has at most %1.</source>
        <translation>Es wurde kein Auftrag hinzugefügt: Ein Tag hat höchstens %1.</translation>
    </message>
    <message>
        <source>The database could not be written.</source>
        <translation>Die Datenbank konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>%1 tasks are planned already.</source>
        <translation>%1 Aufträge sind bereits geplant.</translation>
    </message>
</context>
<context>
    <name>vemo_client::BlockedPage</name>
    <message>
        <source>The accounts can&apos;t be opened</source>
        <translation>Die Konten lassen sich nicht öffnen</translation>
    </message>
    <message>
        <source>Nobody can log in until that is mended. Recordings and settings are untouched.</source>
        <translation>Bis das behoben ist, kann sich niemand anmelden. Aufnahmen und Einstellungen sind unberührt.</translation>
    </message>
    <message>
        <source>Whoever owns this computer account can make a new administrator in a terminal; the files that can&apos;t be opened are kept under another name:
vemo_client user add --name NAME --password-file FILE --administrator</source>
        <translation>Wem dieses Computerkonto gehört, kann in einem Terminal einen neuen Administrator anlegen; die Dateien, die sich nicht öffnen lassen, werden unter anderem Namen aufbewahrt:
vemo_client user add --name NAME --password-file FILE --administrator</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>vemo_client::CertificateDialog</name>
    <message>
        <source>Is this the recorder?</source>
        <translation>Ist das der Rekorder?</translation>
    </message>
    <message>
        <source>%1 shows another key than the one that was trusted. Nothing was sent to it.</source>
        <translation>%1 zeigt einen anderen Schlüssel als den, dem vertraut wurde. Es wurde nichts an ihn gesendet.</translation>
    </message>
    <message>
        <source>%1 is reached by TLS, and its key is not known yet. Nothing was sent to it.</source>
        <translation>%1 wird über TLS erreicht, und sein Schlüssel ist noch nicht bekannt. Es wurde nichts an ihn gesendet.</translation>
    </message>
    <message>
        <source>Its certificate was renewed, or something stands between you and it</source>
        <translation>Sein Zertifikat wurde erneuert, oder etwas steht zwischen Ihnen und ihm</translation>
    </message>
    <message>
        <source>Compare the key with the one that the recorder shows on its own screen or web page</source>
        <translation>Vergleichen Sie den Schlüssel mit dem, den der Rekorder auf seinem Bildschirm oder seiner Webseite anzeigt</translation>
    </message>
    <message>
        <source>Trusted key (SHA-256)</source>
        <translation>Vertrauter Schlüssel (SHA-256)</translation>
    </message>
    <message>
        <source>New key (SHA-256)</source>
        <translation>Neuer Schlüssel (SHA-256)</translation>
    </message>
    <message>
        <source>Key (SHA-256)</source>
        <translation>Schlüssel (SHA-256)</translation>
    </message>
    <message>
        <source>Don&apos;t trust it</source>
        <translation>Nicht vertrauen</translation>
    </message>
    <message>
        <source>Trust the new key</source>
        <translation>Neuem Schlüssel vertrauen</translation>
    </message>
    <message>
        <source>Trust this key</source>
        <translation>Diesem Schlüssel vertrauen</translation>
    </message>
</context>
<context>
    <name>vemo_client::CertificateWords</name>
    <message>
        <source>itself</source>
        <translation>sich selbst</translation>
    </message>
    <message>
        <source>Issued for</source>
        <translation>Ausgestellt für</translation>
    </message>
    <message>
        <source>nobody that it names</source>
        <translation>keine Angabe</translation>
    </message>
    <message>
        <source>Names</source>
        <translation>Namen</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>Issued by</source>
        <translation>Ausgestellt von</translation>
    </message>
    <message>
        <source>Valid</source>
        <translation>Gültig</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>It has run out on %1.</source>
        <translation>Es ist am %1 abgelaufen.</translation>
    </message>
    <message>
        <source>It is not valid before %1. Are the clocks right?</source>
        <translation>Es ist erst ab %1 gültig. Gehen die Uhren richtig?</translation>
    </message>
    <message>
        <source>It is not issued for %1.</source>
        <translation>Es ist nicht für %1 ausgestellt.</translation>
    </message>
    <message>
        <source>Nobody but the recorder itself vouches for it.</source>
        <translation>Nur der Rekorder selbst bürgt dafür.</translation>
    </message>
</context>
<context>
    <name>vemo_client::ChannelDayWords</name>
    <message>
        <source>Searching...</source>
        <translation>Suche läuft...</translation>
    </message>
    <message>
        <source>No recording on this day</source>
        <translation>Keine Aufnahme an diesem Tag</translation>
    </message>
    <message>
        <source>No recording</source>
        <translation>Keine Aufnahme</translation>
    </message>
    <message>
        <source>Alarm</source>
        <translation>Alarm</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufnahme</translation>
    </message>
</context>
<context>
    <name>vemo_client::ChannelDownload</name>
    <message>
        <source>%1: interrupted; what had arrived is kept in %2.</source>
        <translation>%1: abgebrochen; was angekommen ist, liegt in %2.</translation>
    </message>
    <message>
        <source>%1: interrupted before anything had arrived.</source>
        <translation>%1: abgebrochen, bevor etwas angekommen ist.</translation>
    </message>
    <message>
        <source>%1: no recording from %2 to %3.</source>
        <translation>%1: keine Aufnahme von %2 bis %3.</translation>
    </message>
</context>
<context>
    <name>vemo_client::ChannelNameWt</name>
    <message>
        <source>Channel %1</source>
        <translation>Kanal %1</translation>
    </message>
    <message>
        <source>Name of channel %1</source>
        <translation>Name von Kanal %1</translation>
    </message>
    <message>
        <source>The recorder&apos;s own name: %1</source>
        <translation>Name laut Rekorder: %1</translation>
    </message>
</context>
<context>
    <name>vemo_client::CliBackupParser</name>
    <message>
        <source>What to do with the backups is missing.</source>
        <translation>Es fehlt, was mit den Sicherungen geschehen soll.</translation>
    </message>
</context>
<context>
    <name>vemo_client::CliLocalParser</name>
    <message>
        <source>See vemo_client local --help.</source>
        <translation>Siehe vemo_client local --help.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither recordings nor snapshots.</source>
        <translation>&quot;%1&quot; ist weder recordings noch snapshots.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no action of local.</source>
        <translation>&quot;%1&quot; ist keine Aktion von local.</translation>
    </message>
    <message>
        <source>What to do with the local files is missing.</source>
        <translation>Es fehlt, was mit den lokalen Dateien geschehen soll.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is one argument too many.</source>
        <translation>&quot;%1&quot; ist ein Argument zu viel.</translation>
    </message>
</context>
<context>
    <name>vemo_client::CliParser</name>
    <message>
        <source>Shows this help.</source>
        <translation>Zeigt diese Hilfe.</translation>
    </message>
    <message>
        <source>Shows the version.</source>
        <translation>Zeigt die Version.</translation>
    </message>
    <message>
        <source>Keeps settings and data below &lt;dir&gt;.</source>
        <translation>Legt Einstellungen und Daten unter &lt;dir&gt; ab.</translation>
    </message>
    <message>
        <source>dir</source>
        <translation>dir</translation>
    </message>
    <message>
        <source>Starts the window in this theme: dark or light.</source>
        <translation>Startet das Fenster in diesem Design: dark oder light.</translation>
    </message>
    <message>
        <source>name</source>
        <translation>name</translation>
    </message>
    <message>
        <source>Address of the recorder: its ONVIF device service (http, https; the path may be left out), or a replay address (rtsp, rtsps; {channel} stands for the channel&apos;s number).</source>
        <translation>Adresse des Rekorders: sein ONVIF-Gerätedienst (http, https; der Pfad kann fehlen) oder eine Wiedergabeadresse (rtsp, rtsps; {channel} steht für die Kanalnummer).</translation>
    </message>
    <message>
        <source>url</source>
        <translation>url</translation>
    </message>
    <message>
        <source>User on the recorder.</source>
        <translation>Benutzer auf dem Rekorder.</translation>
    </message>
    <message>
        <source>File whose first line is the password. Without it, the environment variable VEMO_PASSWORD.</source>
        <translation>Datei, deren erste Zeile das Passwort ist. Ohne sie gilt die Umgebungsvariable VEMO_PASSWORD.</translation>
    </message>
    <message>
        <source>file</source>
        <translation>file</translation>
    </message>
    <message>
        <source>Channel number from 1; several: 1,2,3.</source>
        <translation>Kanalnummer ab 1; mehrere: 1,2,3.</translation>
    </message>
    <message>
        <source>n</source>
        <translation>n</translation>
    </message>
    <message>
        <source>Begin, as 2026-01-10T08:00:00; local time unless an offset follows.</source>
        <translation>Beginn, etwa 2026-01-10T08:00:00; Ortszeit, wenn kein Zeitversatz folgt.</translation>
    </message>
    <message>
        <source>time</source>
        <translation>time</translation>
    </message>
    <message>
        <source>End, likewise.</source>
        <translation>Ende, ebenso.</translation>
    </message>
    <message>
        <source>Accepts only the recorder whose public key has this SHA-256.</source>
        <translation>Akzeptiert nur den Rekorder, dessen öffentlicher Schlüssel diesen SHA-256 hat.</translation>
    </message>
    <message>
        <source>hex</source>
        <translation>hex</translation>
    </message>
    <message>
        <source>PEM file of certificates to trust beside the system&apos;s own.</source>
        <translation>PEM-Datei mit Zertifikaten, denen neben denen des Systems vertraut wird.</translation>
    </message>
    <message>
        <source>Name of one recording, as search tells it; --begin and --end are only needed when the name has no span.</source>
        <translation>Name einer Aufnahme, wie search ihn nennt; --begin und --end sind nur nötig, wenn der Name keinen Zeitraum enthält.</translation>
    </message>
    <message>
        <source>Task to act on, as list tells it; several times for several.</source>
        <translation>Auftrag, um den es geht, wie list ihn nennt; mehrfach für mehrere.</translation>
    </message>
    <message>
        <source>id</source>
        <translation>id</translation>
    </message>
    <message>
        <source>Acts on every task for which it makes sense.</source>
        <translation>Gilt für alle Aufträge, bei denen es sinnvoll ist.</translation>
    </message>
    <message>
        <source>Ends without waiting for the next try of failed tasks.</source>
        <translation>Endet, ohne auf den nächsten Versuch fehlgeschlagener Aufträge zu warten.</translation>
    </message>
    <message>
        <source>Day, as 2026-01-10, today or yesterday.</source>
        <translation>Tag, etwa 2026-01-10, today oder yesterday.</translation>
    </message>
    <message>
        <source>day</source>
        <translation>day</translation>
    </message>
    <message>
        <source>For so many days from that day on; 1 when left out.</source>
        <translation>So viele Tage ab diesem Tag; ohne Angabe 1.</translation>
    </message>
    <message>
        <source>Times of day to back up, as 08:00-12:00,13:00-18:00; an end takes its whole minute in. Without it, the whole day.</source>
        <translation>Zu sichernde Tageszeiten, etwa 08:00-12:00,13:00-18:00; ein Ende schließt seine ganze Minute ein. Ohne Angabe der ganze Tag.</translation>
    </message>
    <message>
        <source>times</source>
        <translation>times</translation>
    </message>
    <message>
        <source>Gives a task up in this run after so many failures; 3 when left out.</source>
        <translation>Gibt einen Auftrag in diesem Lauf nach so vielen Fehlschlägen auf; ohne Angabe 3.</translation>
    </message>
    <message>
        <source>Folder to copy the files into; it must be there.</source>
        <translation>Ordner, in den die Dateien kopiert werden; er muss vorhanden sein.</translation>
    </message>
    <message>
        <source>folder</source>
        <translation>folder</translation>
    </message>
    <message>
        <source>Writes one JSON object a line.</source>
        <translation>Gibt ein JSON-Objekt je Zeile aus.</translation>
    </message>
    <message>
        <source>Writes diagnostics to the standard error stream.</source>
        <translation>Gibt Diagnosen auf der Standardfehlerausgabe aus.</translation>
    </message>
    <message>
        <source>File to write, or folder; with several channels a folder. Files there are never overwritten.</source>
        <translation>Zu schreibende Datei oder Ordner; bei mehreren Kanälen ein Ordner. Vorhandene Dateien werden nie überschrieben.</translation>
    </message>
    <message>
        <source>path</source>
        <translation>path</translation>
    </message>
    <message>
        <source>What to do without a window.</source>
        <translation>Was ohne Fenster zu tun ist.</translation>
    </message>
    <message>
        <source>See vemo_client --help.</source>
        <translation>Siehe vemo_client --help.</translation>
    </message>
    <message>
        <source>--theme is dark or light.</source>
        <translation>--theme ist dark oder light.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a verb.</source>
        <translation>&quot;%1&quot; ist kein Befehl.</translation>
    </message>
    <message>
        <source>Exit codes: 0 done, 1 failed, 2 wrong use, 3 login refused, 4 recorder not reachable, 5 the recorder&apos;s limit is
reached, 6 disk full or not writable, 7 no recording in the span, 8 incomplete (a playable part is there),
130 interrupted (what had arrived is kept).
</source>
        <translation>Exit-Codes: 0 erledigt, 1 fehlgeschlagen, 2 falsch aufgerufen, 3 Anmeldung abgelehnt, 4 Rekorder nicht erreichbar,
5 Grenze des Rekorders erreicht, 6 Datenträger voll oder nicht beschreibbar, 7 keine Aufnahme im Zeitraum,
8 unvollständig (ein abspielbarer Teil ist da), 130 abgebrochen (was angekommen ist, bleibt erhalten).
</translation>
    </message>
    <message>
        <source>--%1 is missing.</source>
        <translation>--%1 fehlt.</translation>
    </message>
    <message>
        <source>The address of the recorder must be an http, https, rtsp or rtsps address with a host.</source>
        <translation>Die Adresse des Rekorders muss eine http-, https-, rtsp- oder rtsps-Adresse mit einem Host sein.</translation>
    </message>
    <message>
        <source>The address of the recorder carries a login; give it by --user and --password-file.</source>
        <translation>Die Adresse des Rekorders enthält Anmeldedaten; geben Sie sie mit --user und --password-file an.</translation>
    </message>
    <message>
        <source>The password file %1 can&apos;t be read: %2.</source>
        <translation>Die Passwortdatei %1 kann nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>The first line of the password file %1 is longer than %2 bytes.</source>
        <translation>Die erste Zeile der Passwortdatei %1 ist länger als %2 Byte.</translation>
    </message>
    <message>
        <source>The password is missing: give --password-file or set VEMO_PASSWORD.</source>
        <translation>Das Passwort fehlt: Geben Sie --password-file an oder setzen Sie VEMO_PASSWORD.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a channel; channels are numbers from 1 to %2.</source>
        <translation>&quot;%1&quot; ist kein Kanal; Kanäle sind Zahlen von 1 bis %2.</translation>
    </message>
    <message>
        <source>At most %1 channels at once.</source>
        <translation>Höchstens %1 Kanäle auf einmal.</translation>
    </message>
    <message>
        <source>--pin takes a SHA-256: 64 hexadecimal digits.</source>
        <translation>--pin erwartet einen SHA-256: 64 hexadezimale Ziffern.</translation>
    </message>
    <message>
        <source>The certificate file %1 can&apos;t be read: %2.</source>
        <translation>Die Zertifikatsdatei %1 kann nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>The file %1 holds no PEM certificate.</source>
        <translation>Die Datei %1 enthält kein PEM-Zertifikat.</translation>
    </message>
    <message>
        <source>See vemo_client %1 --help.</source>
        <translation>Siehe vemo_client %1 --help.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no action of %2.</source>
        <translation>&quot;%1&quot; ist keine Aktion von %2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is one argument too many.</source>
        <translation>&quot;%1&quot; ist ein Argument zu viel.</translation>
    </message>
    <message>
        <source>Keeps what is at least this grave in the program&apos;s log: debug, info, warning or error; info when left out.</source>
        <translation>Hält im Programmprotokoll fest, was mindestens so schwer wiegt: debug, info, warning oder error; ohne Angabe info.</translation>
    </message>
    <message>
        <source>level</source>
        <translation>level</translation>
    </message>
    <message>
        <source>Vemo, a client for network video recorders. Without a verb it opens the window.

Verbs:
  search    lists the recordings of a channel in a span of time
  download  downloads a span of time as MP4
  queue     works on the stored downloads while no window is open
  backup    plans backups of whole days, and works them off while no window is open
  local     lists, saves and deletes the recordings and snapshots on this computer
  user      adds and lists those who may log in to the window, and sets their passwords
Their options: vemo_client &lt;verb&gt; --help
</source>
        <translation>Vemo, ein Client für Netzwerk-Videorekorder. Ohne Befehl öffnet er das Fenster.

Befehle:
  search    listet die Aufnahmen eines Kanals in einem Zeitraum auf
  download  lädt einen Zeitraum als MP4 herunter
  queue     bearbeitet die gespeicherten Downloads ohne offenes Fenster
  backup    plant Sicherungen ganzer Tage, arbeitet sie ohne offenes Fenster ab
  local     listet, speichert und löscht Aufnahmen und Einzelbilder auf diesem Computer
  user      legt an und listet, wer sich am Fenster anmelden darf, und setzt Passwörter
Ihre Optionen: vemo_client &lt;verb&gt; --help
</translation>
    </message>
    <message>
        <source>--log-level is debug, info, warning or error.</source>
        <translation>--log-level ist debug, info, warning oder error.</translation>
    </message>
</context>
<context>
    <name>vemo_client::CliQueueParser</name>
    <message>
        <source>What to do with the queue is missing.</source>
        <translation>Es fehlt, was mit der Warteschlange geschehen soll.</translation>
    </message>
</context>
<context>
    <name>vemo_client::CliUserParser</name>
    <message>
        <source>See vemo_client user --help.</source>
        <translation>Siehe vemo_client user --help.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no action of user.</source>
        <translation>&quot;%1&quot; ist keine Aktion von user.</translation>
    </message>
    <message>
        <source>What to do with the users is missing.</source>
        <translation>Es fehlt, was mit den Benutzern geschehen soll.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is one argument too many.</source>
        <translation>&quot;%1&quot; ist ein Argument zu viel.</translation>
    </message>
</context>
<context>
    <name>vemo_client::DayAxisWt</name>
    <message>
        <source>Recordings of the day</source>
        <translation>Aufnahmen des Tages</translation>
    </message>
    <message>
        <source>%1: %2 of %3 recorded</source>
        <translation>%1: %2 von %3 aufgezeichnet</translation>
    </message>
    <message>
        <source>Zoom in (plus)</source>
        <translation>Vergrößern (Plus)</translation>
    </message>
    <message>
        <source>Zoom out (minus)</source>
        <translation>Verkleinern (Minus)</translation>
    </message>
    <message>
        <source>Show the whole day</source>
        <translation>Ganzen Tag anzeigen</translation>
    </message>
</context>
<context>
    <name>vemo_client::DecodeWorker</name>
    <message>
        <source>The library that decodes video is missing. Installing the client anew brings it back.</source>
        <translation>Die Bibliothek zum Dekodieren von Video fehlt. Eine Neuinstallation des Clients bringt sie zurück.</translation>
    </message>
    <message>
        <source>This channel sends no pictures that the client can show.</source>
        <translation>Dieser Kanal sendet keine Bilder, die der Client anzeigen kann.</translation>
    </message>
    <message>
        <source>Video of this kind can&apos;t be shown on this computer.</source>
        <translation>Video dieser Art kann auf diesem Computer nicht angezeigt werden.</translation>
    </message>
    <message>
        <source>The pictures of this channel are damaged and can&apos;t be decoded.</source>
        <translation>Die Bilder dieses Kanals sind beschädigt und können nicht dekodiert werden.</translation>
    </message>
    <message>
        <source>This channel has not sent a complete picture yet.</source>
        <translation>Dieser Kanal hat noch kein vollständiges Bild gesendet.</translation>
    </message>
</context>
<context>
    <name>vemo_client::DeviceDetailsWt</name>
    <message>
        <source>The recorder is disabled</source>
        <translation>Der Rekorder ist deaktiviert</translation>
    </message>
    <message>
        <source>It is not logged in. Its channels can&apos;t be watched, played, downloaded or backed up.</source>
        <translation>Er ist nicht angemeldet. Seine Kanäle können nicht angesehen, wiedergegeben, heruntergeladen oder gesichert werden.</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>Aktivieren</translation>
    </message>
    <message>
        <source>Check the key...</source>
        <translation>Schlüssel prüfen...</translation>
    </message>
    <message>
        <source>Type the login...</source>
        <translation>Anmeldedaten eingeben...</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>User name</source>
        <translation>Benutzername</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>Used for</source>
        <translation>Verwendet für</translation>
    </message>
    <message>
        <source>Maker</source>
        <translation>Hersteller</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation>Firmware</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>Seriennummer</translation>
    </message>
    <message>
        <source>Last seen</source>
        <translation>Zuletzt gesehen</translation>
    </message>
    <message>
        <source>Its channels are known once it was logged in.</source>
        <translation>Seine Kanäle sind nach der ersten Anmeldung bekannt.</translation>
    </message>
    <message>
        <source>1 channel</source>
        <translation>1 Kanal</translation>
    </message>
    <message>
        <source>%1 channels</source>
        <translation>%1 Kanäle</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
</context>
<context>
    <name>vemo_client::DeviceFacts</name>
    <message>
        <source>Now</source>
        <translation>Jetzt</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
</context>
<context>
    <name>vemo_client::DeviceListBt</name>
    <message>
        <source>Export or import the list</source>
        <translation>Liste exportieren oder importieren</translation>
    </message>
    <message>
        <source>Export the list...</source>
        <translation>Liste exportieren...</translation>
    </message>
    <message>
        <source>Import a list...</source>
        <translation>Liste importieren...</translation>
    </message>
    <message>
        <source>Export the list of recorders</source>
        <translation>Rekorderliste exportieren</translation>
    </message>
    <message>
        <source>recorders</source>
        <translation>Rekorder</translation>
    </message>
    <message>
        <source>CSV files (*.csv)</source>
        <translation>CSV-Dateien (*.csv)</translation>
    </message>
    <message>
        <source>Import a list of recorders</source>
        <translation>Rekorderliste importieren</translation>
    </message>
    <message>
        <source>The list of recorders could not be written</source>
        <translation>Die Rekorderliste konnte nicht geschrieben werden</translation>
    </message>
    <message>
        <source>1 recorder was exported</source>
        <translation>1 Rekorder wurde exportiert</translation>
    </message>
    <message>
        <source>%1 recorders were exported</source>
        <translation>%1 Rekorder wurden exportiert</translation>
    </message>
    <message>
        <source>%1 holds no passwords.</source>
        <translation>%1 enthält keine Passwörter.</translation>
    </message>
    <message>
        <source>The disk does not answer.</source>
        <translation>Der Datenträger antwortet nicht.</translation>
    </message>
    <message>
        <source>The list of recorders could not be read</source>
        <translation>Die Rekorderliste konnte nicht gelesen werden</translation>
    </message>
    <message>
        <source>1 recorder was added</source>
        <translation>1 Rekorder wurde hinzugefügt</translation>
    </message>
    <message>
        <source>%1 recorders were added</source>
        <translation>%1 Rekorder wurden hinzugefügt</translation>
    </message>
    <message>
        <source>1 was known already.</source>
        <translation>1 war bereits bekannt.</translation>
    </message>
    <message>
        <source>%1 were known already.</source>
        <translation>%1 waren bereits bekannt.</translation>
    </message>
    <message>
        <source>Their passwords are asked for in the list.</source>
        <translation>Ihre Passwörter werden in der Liste abgefragt.</translation>
    </message>
    <message>
        <source>The file lists none.</source>
        <translation>Die Datei enthält keine.</translation>
    </message>
    <message>
        <source>These lines were left out:</source>
        <translation>Diese Zeilen wurden ausgelassen:</translation>
    </message>
</context>
<context>
    <name>vemo_client::DeviceListFile</name>
    <message>
        <source>The file is larger than a list of recorders can be.</source>
        <translation>Die Datei ist größer, als eine Rekorderliste sein kann.</translation>
    </message>
    <message>
        <source>The first line names no column &quot;address&quot;.</source>
        <translation>Die erste Zeile nennt keine Spalte &quot;address&quot;.</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>More recorders than can be kept.</source>
        <translation>Mehr Rekorder, als verwaltet werden können.</translation>
    </message>
</context>
<context>
    <name>vemo_client::DeviceOperWt</name>
    <message>
        <source>Log in again</source>
        <translation>Neu anmelden</translation>
    </message>
    <message>
        <source>Log in again (the recorder is disabled)</source>
        <translation>Neu anmelden (der Rekorder ist deaktiviert)</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>Deaktivieren</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>Aktivieren</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Ändern</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
</context>
<context>
    <name>vemo_client::DevicesPage</name>
    <message>
        <source>Enter</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>details</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>select</source>
        <translation>auswählen</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>remove</source>
        <translation>entfernen</translation>
    </message>
    <message>
        <source>No recorder is known yet.</source>
        <translation>Noch kein Rekorder bekannt.</translation>
    </message>
    <message>
        <source>Let the client look for recorders on your network, or add one by its address.</source>
        <translation>Lassen Sie den Client in Ihrem Netzwerk nach Rekordern suchen, oder fügen Sie einen über seine Adresse hinzu.</translation>
    </message>
    <message>
        <source>Find on the network...</source>
        <translation>Im Netzwerk suchen...</translation>
    </message>
    <message>
        <source>No recorder matches the filter.</source>
        <translation>Kein Rekorder entspricht dem Filter.</translation>
    </message>
    <message>
        <source>Names, addresses, groups, models and channels are looked through.</source>
        <translation>Durchsucht werden Namen, Adressen, Gruppen, Modelle und Kanäle.</translation>
    </message>
    <message>
        <source>Clear the filter</source>
        <translation>Filter zurücksetzen</translation>
    </message>
    <message>
        <source>1 recorder</source>
        <translation>1 Rekorder</translation>
    </message>
    <message>
        <source>%1 recorders</source>
        <translation>%1 Rekorder</translation>
    </message>
    <message>
        <source>%1, %2 not online</source>
        <translation>%1, %2 nicht online</translation>
    </message>
    <message>
        <source>1 selected</source>
        <translation>1 ausgewählt</translation>
    </message>
    <message>
        <source>%1 selected</source>
        <translation>%1 ausgewählt</translation>
    </message>
    <message>
        <source>Select recorders in the list first.</source>
        <translation>Wählen Sie zuerst Rekorder in der Liste aus.</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>Log in again</source>
        <translation>Neu anmelden</translation>
    </message>
    <message>
        <source>Check the key...</source>
        <translation>Schlüssel prüfen...</translation>
    </message>
    <message>
        <source>Change...</source>
        <translation>Ändern...</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>Aktivieren</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>Deaktivieren</translation>
    </message>
    <message>
        <source>Group...</source>
        <translation>Gruppe...</translation>
    </message>
    <message>
        <source>Rename the group...</source>
        <translation>Gruppe umbenennen...</translation>
    </message>
    <message>
        <source>Remove...</source>
        <translation>Entfernen...</translation>
    </message>
</context>
<context>
    <name>vemo_client::DevicesTable</name>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Kanäle</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>Sicherung</translation>
    </message>
    <message>
        <source>Last seen</source>
        <translation>Zuletzt gesehen</translation>
    </message>
    <message>
        <source>Oper</source>
        <translation>Aktion</translation>
    </message>
    <message>
        <source>Recorders</source>
        <translation>Rekorder</translation>
    </message>
    <message>
        <source>%1, %2, %3</source>
        <translation>%1, %2, %3</translation>
    </message>
    <message>
        <source>%1, firmware %2</source>
        <translation>%1, Firmware %2</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
</context>
<context>
    <name>vemo_client::DiscoveryDialog</name>
    <message>
        <source>%1 answers at %2 now</source>
        <translation>%1 antwortet jetzt unter %2</translation>
    </message>
    <message>
        <source>It is stored with the address %1. Login, channels and tasks stay as they are.</source>
        <translation>Er ist mit der Adresse %1 gespeichert. Anmeldedaten, Kanäle und Aufträge bleiben, wie sie sind.</translation>
    </message>
    <message>
        <source>Use the new address</source>
        <translation>Neue Adresse verwenden</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Add 1 recorder</source>
        <translation>1 Rekorder hinzufügen</translation>
    </message>
    <message>
        <source>Add %1 recorders</source>
        <translation>%1 Rekorder hinzufügen</translation>
    </message>
    <message>
        <source>Check that the recorder is switched on and in the same network as this computer, that ONVIF and its discovery are switched on in the recorder&apos;s settings, and that no firewall holds back UDP port 3702.

A recorder in another network does not hear the question: add it by its address.</source>
        <translation>Prüfen Sie, ob der Rekorder eingeschaltet und im selben Netzwerk wie dieser Computer ist, ob ONVIF und die ONVIF-Suche in den Einstellungen des Rekorders eingeschaltet sind und ob keine Firewall den UDP-Port 3702 sperrt.

Ein Rekorder in einem anderen Netzwerk hört die Anfrage nicht: Fügen Sie ihn über seine Adresse hinzu.</translation>
    </message>
</context>
<context>
    <name>vemo_client::DownloadBar</name>
    <message>
        <source>Download</source>
        <translation>Herunterladen</translation>
    </message>
    <message>
        <source>The span has not come yet</source>
        <translation>Der Zeitraum liegt in der Zukunft</translation>
    </message>
    <message>
        <source>No channel is chosen</source>
        <translation>Kein Kanal ausgewählt</translation>
    </message>
    <message>
        <source>Downloading is not allowed for this user</source>
        <translation>Dieser Benutzer darf nicht herunterladen</translation>
    </message>
    <message>
        <source>Puts it into the download queue</source>
        <translation>Stellt die Auswahl in die Download-Warteschlange</translation>
    </message>
    <message>
        <source>No span is marked</source>
        <translation>Kein Zeitraum markiert</translation>
    </message>
    <message>
        <source>Drag on the time line to mark a span, or check recordings in the list</source>
        <translation>Auf der Zeitachse ziehen, um einen Zeitraum zu markieren, oder Aufnahmen in der Liste markieren</translation>
    </message>
</context>
<context>
    <name>vemo_client::DownloadPrinter</name>
    <message>
        <source>%1 left</source>
        <translation>noch %1</translation>
    </message>
    <message>
        <source>%1 of %2 running</source>
        <translation>%1 von %2 laufen</translation>
    </message>
    <message>
        <source>%1 to %2, %3 MB in %4 s (%5 MB/s), %6</source>
        <translation>%1 bis %2, %3 MB in %4 s (%5 MB/s), %6</translation>
    </message>
    <message>
        <source>the recorder gave no list of recordings to compare this with</source>
        <translation>der Rekorder gab keine Aufnahmeliste zum Vergleichen</translation>
    </message>
    <message>
        <source>gap %1 to %2: %3</source>
        <translation>Lücke %1 bis %2: %3</translation>
    </message>
</context>
<context>
    <name>vemo_client::Failures</name>
    <message>
        <source>The recorder gave no reason</source>
        <translation>Der Rekorder nannte keinen Grund</translation>
    </message>
    <message>
        <source>%1 shows another key than the pinned one, so nothing was sent to it; the SHA-256 of its key is %2.</source>
        <translation>%1 zeigt einen anderen Schlüssel als den festgelegten, daher wurde nichts an ihn gesendet; der SHA-256 seines Schlüssels ist %2.</translation>
    </message>
    <message>
        <source>The certificate of %1 is not trusted (%2), so nothing was sent to it; if this is the key of your recorder, add --pin %3.</source>
        <translation>Dem Zertifikat von %1 wird nicht vertraut (%2), daher wurde nichts an ihn gesendet; wenn das der Schlüssel Ihres Rekorders ist, fügen Sie --pin %3 hinzu.</translation>
    </message>
    <message>
        <source>%1 has no channels, so there is no channel %2.</source>
        <translation>%1 hat keine Kanäle, also auch keinen Kanal %2.</translation>
    </message>
    <message>
        <source>%1 has no channel %2; its channels are %3.</source>
        <translation>%1 hat keinen Kanal %2; seine Kanäle sind %3.</translation>
    </message>
</context>
<context>
    <name>vemo_client::FirstRecorderWt</name>
    <message>
        <source>Keep it offline</source>
        <translation>Offline behalten</translation>
    </message>
    <message>
        <source>Add your first recorder</source>
        <translation>Ersten Rekorder hinzufügen</translation>
    </message>
    <message>
        <source>Its recordings can be searched and fetched as soon as the client is logged in.</source>
        <translation>Seine Aufnahmen lassen sich durchsuchen und holen, sobald der Client angemeldet ist.</translation>
    </message>
    <message>
        <source>Every hour that matters,
safe on your own disks.</source>
        <translation>Jede Stunde, die zählt,
sicher auf Ihren eigenen Datenträgern.</translation>
    </message>
    <message>
        <source>Search the days of your network recorders and fetch what you need as files.</source>
        <translation>Durchsuchen Sie die Tage Ihrer Netzwerkrekorder und holen Sie, was Sie brauchen, als Dateien.</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>Verbinde...</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Add and log in</source>
        <translation>Hinzufügen und anmelden</translation>
    </message>
    <message>
        <source>Find on the network...</source>
        <translation>Im Netzwerk suchen...</translation>
    </message>
    <message>
        <source>No recorder is known yet</source>
        <translation>Noch kein Rekorder bekannt</translation>
    </message>
    <message>
        <source>Somebody who may look after devices adds the first one; its recordings show here.</source>
        <translation>Wer Geräte verwalten darf, fügt den ersten hinzu; seine Aufnahmen erscheinen dann hier.</translation>
    </message>
</context>
<context>
    <name>vemo_client::FolderEdit</name>
    <message>
        <source>Make folder</source>
        <translation>Ordner anlegen</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Durchsuchen</translation>
    </message>
    <message>
        <source>Browse: %1</source>
        <translation>Durchsuchen: %1</translation>
    </message>
    <message>
        <source>The folder can&apos;t be made here. Choose another one.</source>
        <translation>Der Ordner kann hier nicht angelegt werden. Wählen Sie einen anderen.</translation>
    </message>
</context>
<context>
    <name>vemo_client::FolderField</name>
    <message>
        <source>Browse</source>
        <translation>Durchsuchen</translation>
    </message>
    <message>
        <source>Browse: %1</source>
        <translation>Durchsuchen: %1</translation>
    </message>
    <message>
        <source>%1 free of %2</source>
        <translation>%1 frei von %2</translation>
    </message>
</context>
<context>
    <name>vemo_client::FoldersPage</name>
    <message>
        <source>Choose where files are kept</source>
        <translation>Speicherorte wählen</translation>
    </message>
    <message>
        <source>Footage takes much room. Each folder may lie on a disk of its own and can be changed later in the settings.</source>
        <translation>Videomaterial braucht viel Platz. Jeder Ordner kann auf einem eigenen Datenträger liegen und später in den Einstellungen geändert werden.</translation>
    </message>
    <message>
        <source>Recordings and snapshots of live video</source>
        <translation>Aufnahmen und Einzelbilder der Live-Ansicht</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>Downloads</translation>
    </message>
    <message>
        <source>Recordings backup</source>
        <translation>Sicherung der Aufnahmen</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Weiter</translation>
    </message>
</context>
<context>
    <name>vemo_client::GroupDialog</name>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>The recorder is listed below this group. An empty name takes it out of any.</source>
        <translation>Der Rekorder wird unter dieser Gruppe aufgeführt. Ein leerer Name nimmt ihn aus jeder Gruppe heraus.</translation>
    </message>
    <message>
        <source>%1 recorders are listed below this group. An empty name takes them out of any.</source>
        <translation>%1 Rekorder werden unter dieser Gruppe aufgeführt. Ein leerer Name nimmt sie aus jeder Gruppe heraus.</translation>
    </message>
    <message>
        <source>Name of the group</source>
        <translation>Name der Gruppe</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
</context>
<context>
    <name>vemo_client::GuideWindow</name>
    <message>
        <source>Guide</source>
        <translation>Handbuch</translation>
    </message>
    <message>
        <source>Headings</source>
        <translation>Überschriften</translation>
    </message>
    <message>
        <source>The guide is not installed</source>
        <translation>Das Handbuch ist nicht installiert</translation>
    </message>
    <message>
        <source>It belongs to the program&apos;s files. Installing Vemo again brings it back.</source>
        <translation>Es gehört zu den Programmdateien. Eine Neuinstallation von Vemo bringt es zurück.</translation>
    </message>
</context>
<context>
    <name>vemo_client::LanguageButton</name>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Language: %1</source>
        <translation>Sprache: %1</translation>
    </message>
</context>
<context>
    <name>vemo_client::LiveBar</name>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>The channels that are watched together</source>
        <translation>Die Kanäle, die zusammen angesehen werden</translation>
    </message>
    <message>
        <source>Save, rename or delete the view</source>
        <translation>Ansicht speichern, umbenennen oder löschen</translation>
    </message>
    <message>
        <source>Save view as...</source>
        <translation>Ansicht speichern als...</translation>
    </message>
    <message>
        <source>Rename view...</source>
        <translation>Ansicht umbenennen...</translation>
    </message>
    <message>
        <source>Delete view...</source>
        <translation>Ansicht löschen...</translation>
    </message>
    <message>
        <source>One channel (1)</source>
        <translation>Ein Kanal (1)</translation>
    </message>
    <message>
        <source>Four channels (4)</source>
        <translation>Vier Kanäle (4)</translation>
    </message>
    <message>
        <source>Nine channels (9)</source>
        <translation>Neun Kanäle (9)</translation>
    </message>
    <message>
        <source>Snapshot</source>
        <translation>Einzelbild</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Aufnahme beenden</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Aufnehmen</translation>
    </message>
    <message>
        <source>Full screen (F)</source>
        <translation>Vollbild (F)</translation>
    </message>
    <message>
        <source>View without a name</source>
        <translation>Ansicht ohne Namen</translation>
    </message>
    <message>
        <source>Save the picture of the selected tile (S)</source>
        <translation>Bild der ausgewählten Kachel speichern (S)</translation>
    </message>
    <message>
        <source>The selected tile shows no picture</source>
        <translation>Die ausgewählte Kachel zeigt kein Bild</translation>
    </message>
    <message>
        <source>The selected tile shows no channel</source>
        <translation>Die ausgewählte Kachel zeigt keinen Kanal</translation>
    </message>
    <message>
        <source>Finish the file of the selected tile (R)</source>
        <translation>Datei der ausgewählten Kachel abschließen (R)</translation>
    </message>
    <message>
        <source>Record the channel of the selected tile on this computer (R)</source>
        <translation>Kanal der ausgewählten Kachel auf diesem Computer aufnehmen (R)</translation>
    </message>
</context>
<context>
    <name>vemo_client::LiveColumn</name>
    <message>
        <source>Filter by channel name</source>
        <translation>Nach Kanalname filtern</translation>
    </message>
    <message>
        <source>Drag a channel onto a tile, or press Enter to show it in the next free one.</source>
        <translation>Ziehen Sie einen Kanal auf eine Kachel, oder zeigen Sie ihn mit der Eingabetaste in der nächsten freien.</translation>
    </message>
</context>
<context>
    <name>vemo_client::LivePage</name>
    <message>
        <source>1 channel, %1 Mbit/s</source>
        <translation>1 Kanal, %1 Mbit/s</translation>
    </message>
    <message>
        <source>%1 channels, %2 Mbit/s</source>
        <translation>%1 Kanäle, %2 Mbit/s</translation>
    </message>
    <message>
        <source>A live channel is being recorded. The recording ends, and what was recorded is kept.</source>
        <translation>Ein Live-Kanal wird gerade aufgenommen. Die Aufnahme endet, das Aufgenommene bleibt erhalten.</translation>
    </message>
    <message>
        <source>%1 live channels are being recorded. The recordings end, and what was recorded is kept.</source>
        <translation>%1 Live-Kanäle werden gerade aufgenommen. Die Aufnahmen enden, das Aufgenommene bleibt erhalten.</translation>
    </message>
    <message>
        <source>Save view</source>
        <translation>Ansicht speichern</translation>
    </message>
    <message>
        <source>The channels in their tiles are kept under this name. A view of the same name is replaced.</source>
        <translation>Die Kanäle werden mit ihren Kacheln unter diesem Namen gespeichert. Eine Ansicht gleichen Namens wird ersetzt.</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>There are too many views already. Delete one first.</source>
        <translation>Es gibt bereits zu viele Ansichten. Löschen Sie zuerst eine.</translation>
    </message>
    <message>
        <source>Rename view</source>
        <translation>Ansicht umbenennen</translation>
    </message>
    <message>
        <source>The view %1 gets another name.</source>
        <translation>Die Ansicht %1 erhält einen anderen Namen.</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>There is a view of this name already.</source>
        <translation>Eine Ansicht dieses Namens gibt es bereits.</translation>
    </message>
    <message>
        <source>Delete view</source>
        <translation>Ansicht löschen</translation>
    </message>
    <message>
        <source>Delete the view %1? The channels stay in their tiles.</source>
        <translation>Ansicht %1 löschen? Die Kanäle bleiben in ihren Kacheln.</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Live</source>
        <translation>Live</translation>
    </message>
</context>
<context>
    <name>vemo_client::LiveRecorder</name>
    <message>
        <source>The folder for recordings can&apos;t be used: %1</source>
        <translation>Der Ordner für Aufnahmen kann nicht verwendet werden: %1</translation>
    </message>
    <message>
        <source>The disk of the folder for recordings has less than 1 GB left.</source>
        <translation>Auf dem Datenträger des Aufnahmeordners ist weniger als 1 GB frei.</translation>
    </message>
    <message>
        <source>The disk of the folder for recordings does not answer.</source>
        <translation>Der Datenträger des Aufnahmeordners antwortet nicht.</translation>
    </message>
    <message>
        <source>The recording could not be started.</source>
        <translation>Die Aufnahme konnte nicht gestartet werden.</translation>
    </message>
    <message>
        <source>The recording was broken off.</source>
        <translation>Die Aufnahme wurde abgebrochen.</translation>
    </message>
</context>
<context>
    <name>vemo_client::LiveStage</name>
    <message>
        <source>Every tile is being recorded</source>
        <translation>Jede Kachel wird gerade aufgenommen</translation>
    </message>
    <message>
        <source>Stop a recording, or show more tiles, to see another channel.</source>
        <translation>Beenden Sie eine Aufnahme, oder zeigen Sie mehr Kacheln an, um einen weiteren Kanal zu sehen.</translation>
    </message>
    <message>
        <source>Snapshot of %1</source>
        <translation>Einzelbild von %1</translation>
    </message>
    <message>
        <source>The recording of %1 has ended</source>
        <translation>Die Aufnahme von %1 ist beendet</translation>
    </message>
    <message>
        <source>%1 What was recorded until then is kept.</source>
        <translation>%1 Was bis dahin aufgenommen wurde, bleibt erhalten.</translation>
    </message>
    <message>
        <source>Nothing of %1 was recorded</source>
        <translation>Von %1 wurde nichts aufgenommen</translation>
    </message>
    <message>
        <source>No picture came before the recording was stopped.</source>
        <translation>Bis zum Ende der Aufnahme kam kein Bild.</translation>
    </message>
    <message>
        <source>The recording of %1 is saved</source>
        <translation>Die Aufnahme von %1 ist gespeichert</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Im Ordner anzeigen</translation>
    </message>
    <message>
        <source>Snapshot (S)</source>
        <translation>Einzelbild (S)</translation>
    </message>
    <message>
        <source>Stop recording (R)</source>
        <translation>Aufnahme beenden (R)</translation>
    </message>
    <message>
        <source>Record (R)</source>
        <translation>Aufnehmen (R)</translation>
    </message>
    <message>
        <source>Show all tiles (Enter)</source>
        <translation>Alle Kacheln anzeigen (Eingabe)</translation>
    </message>
    <message>
        <source>Enlarge (Enter)</source>
        <translation>Vergrößern (Eingabe)</translation>
    </message>
    <message>
        <source>Close the channel (Del)</source>
        <translation>Kanal schließen (Entf)</translation>
    </message>
    <message>
        <source>Drag a channel here</source>
        <translation>Kanal hierher ziehen</translation>
    </message>
    <message>
        <source>REC %1</source>
        <translation>REC %1</translation>
    </message>
    <message>
        <source>Decoded by the processor</source>
        <translation>Dekodierung durch den Prozessor</translation>
    </message>
    <message>
        <source>Decoded by the hardware: %1</source>
        <translation>Dekodierung durch die Hardware: %1</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>Verbinde...</translation>
    </message>
    <message>
        <source>No signal.</source>
        <translation>Kein Signal.</translation>
    </message>
    <message>
        <source>The login can be changed on the page Devices.</source>
        <translation>Die Anmeldedaten lassen sich auf der Seite Geräte ändern.</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Trying again in %1 s</source>
        <translation>Neuer Versuch in %1 s</translation>
    </message>
    <message>
        <source>Try now</source>
        <translation>Jetzt versuchen</translation>
    </message>
</context>
<context>
    <name>vemo_client::LocalListing</name>
    <message>
        <source>Begin</source>
        <translation>Beginn</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
</context>
<context>
    <name>vemo_client::LocalVerb</name>
    <message>
        <source>Capture time:%1</source>
        <translation>Aufnahmezeit: %1</translation>
    </message>
    <message>
        <source>Record begin time:%1,file size:%2</source>
        <translation>Aufnahmebeginn: %1, Dateigröße: %2</translation>
    </message>
    <message>
        <source>Interrupted.</source>
        <translation>Abgebrochen.</translation>
    </message>
    <message>
        <source>%1 recordings, %2 snapshots; %3 new or changed, %4 of them broken; %5 gone.</source>
        <translation>%1 Aufnahmen, %2 Einzelbilder; %3 neu oder geändert, davon %4 defekt; %5 verschwunden.</translation>
    </message>
    <message>
        <source>There are more than %1 recordings; only the oldest are taken. Give --begin and --end.</source>
        <translation>Es gibt mehr als %1 Aufnahmen; nur die ältesten werden genommen. Geben Sie --begin und --end an.</translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be made.</source>
        <translation>Der Ordner %1 kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>%1 could not be saved: %2</source>
        <translation>%1 konnte nicht gespeichert werden: %2</translation>
    </message>
    <message>
        <source>The files could not be saved.</source>
        <translation>Die Dateien konnten nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>The database could not be written.</source>
        <translation>Die Datenbank konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>%1 could not be deleted.</source>
        <translation>%1 konnte nicht gelöscht werden.</translation>
    </message>
</context>
<context>
    <name>vemo_client::LocalVerbOptions</name>
    <message>
        <source>Only what touches the time from here on, as 2026-01-10T08:00:00.</source>
        <translation>Nur was in die Zeit ab hier fällt, etwa 2026-01-10T08:00:00.</translation>
    </message>
    <message>
        <source>time</source>
        <translation>time</translation>
    </message>
    <message>
        <source>Only what touches the time up to here.</source>
        <translation>Nur was in die Zeit bis hier fällt.</translation>
    </message>
    <message>
        <source>Only of the channel with this name.</source>
        <translation>Nur vom Kanal dieses Namens.</translation>
    </message>
    <message>
        <source>name</source>
        <translation>name</translation>
    </message>
    <message>
        <source>Every file, of every time and channel.</source>
        <translation>Alle Dateien, jeder Zeit und jedes Kanals.</translation>
    </message>
    <message>
        <source>Folder to save in. Files there are never overwritten.</source>
        <translation>Ordner, in den gespeichert wird. Vorhandene Dateien werden nie überschrieben.</translation>
    </message>
    <message>
        <source>dir</source>
        <translation>dir</translation>
    </message>
    <message>
        <source>Deletes without a further question.</source>
        <translation>Löscht ohne weitere Rückfrage.</translation>
    </message>
    <message>
        <source>Folder to look through with what is below it, instead of the client&apos;s own; its files are known from then on.</source>
        <translation>Ordner, der samt Unterordnern statt der eigenen des Clients durchsucht wird; seine Dateien sind danach bekannt.</translation>
    </message>
</context>
<context>
    <name>vemo_client::LogExport</name>
    <message>
        <source>The export was cancelled. Nothing was written.</source>
        <translation>Der Export wurde abgebrochen. Es wurde nichts geschrieben.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Time (UTC)</source>
        <translation>Zeit (UTC)</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Channel number</source>
        <translation>Kanalnummer</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Ereignis</translation>
    </message>
    <message>
        <source>The file %1 could not be written: %2</source>
        <translation>Die Datei %1 konnte nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>vemo_client::LogWords</name>
    <message>
        <source>Download</source>
        <translation>Download</translation>
    </message>
    <message>
        <source>Recording deleted</source>
        <translation>Aufnahme gelöscht</translation>
    </message>
    <message>
        <source>Snapshot deleted</source>
        <translation>Einzelbild gelöscht</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>Sicherung</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Sonstiges</translation>
    </message>
    <message>
        <source>Channel %1</source>
        <translation>Kanal %1</translation>
    </message>
</context>
<context>
    <name>vemo_client::LoginPage</name>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>Stay logged in on this computer</source>
        <translation>Auf diesem Computer angemeldet bleiben</translation>
    </message>
    <message>
        <source>Log in</source>
        <translation>Anmelden</translation>
    </message>
    <message>
        <source>User name</source>
        <translation>Benutzername</translation>
    </message>
    <message>
        <source>Caps Lock is on</source>
        <translation>Die Feststelltaste ist an</translation>
    </message>
    <message>
        <source>Capital and small letters are told apart.</source>
        <translation>Groß- und Kleinbuchstaben werden unterschieden.</translation>
    </message>
    <message>
        <source>1 download is waiting and goes on after login.</source>
        <translation>1 Download wartet und läuft nach der Anmeldung weiter.</translation>
    </message>
    <message>
        <source>%1 downloads are waiting and go on after login.</source>
        <translation>%1 Downloads warten und laufen nach der Anmeldung weiter.</translation>
    </message>
    <message>
        <source>Give the name and the password of your account.</source>
        <translation>Geben Sie Name und Passwort Ihres Kontos ein.</translation>
    </message>
    <message>
        <source>Last login of %1: %2</source>
        <translation>Letzte Anmeldung von %1: %2</translation>
    </message>
    <message>
        <source>Logging in...</source>
        <translation>Anmeldung läuft...</translation>
    </message>
    <message>
        <source>You do not stay logged in</source>
        <translation>Sie bleiben nicht angemeldet</translation>
    </message>
    <message>
        <source>It could not be stored. The next start asks for the password again.</source>
        <translation>Das konnte nicht gespeichert werden. Beim nächsten Start wird wieder nach dem Passwort gefragt.</translation>
    </message>
    <message>
        <source>This account is disabled. An administrator can enable it again.</source>
        <translation>Dieses Konto ist deaktiviert. Ein Administrator kann es wieder aktivieren.</translation>
    </message>
    <message>
        <source>The user name or the password is wrong.</source>
        <translation>Benutzername oder Passwort ist falsch.</translation>
    </message>
    <message>
        <source>The user name or the password is wrong. After one more wrong try the account is locked.</source>
        <translation>Benutzername oder Passwort ist falsch. Nach einem weiteren Fehlversuch wird das Konto gesperrt.</translation>
    </message>
    <message>
        <source>The account can be used again.</source>
        <translation>Das Konto kann wieder verwendet werden.</translation>
    </message>
    <message>
        <source>Too many wrong passwords. The account is locked for %1.</source>
        <translation>Zu viele falsche Passwörter. Das Konto ist für %1 gesperrt.</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min %2 s</source>
        <translation>%1 min %2 s</translation>
    </message>
</context>
<context>
    <name>vemo_client::LoginWords</name>
    <message>
        <source>Online</source>
        <translation>Online</translation>
    </message>
    <message>
        <source>Password wanted</source>
        <translation>Passwort nötig</translation>
    </message>
    <message>
        <source>Certificate</source>
        <translation>Zertifikat</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>Verbindet</translation>
    </message>
    <message>
        <source>The password is wanted</source>
        <translation>Das Passwort wird gebraucht</translation>
    </message>
    <message>
        <source>It is not kept on this computer, or can&apos;t be read.</source>
        <translation>Es ist auf diesem Computer nicht gespeichert oder nicht lesbar.</translation>
    </message>
    <message>
        <source>Type it once more.</source>
        <translation>Geben Sie es noch einmal ein.</translation>
    </message>
    <message>
        <source>Disabled</source>
        <translation>Deaktiviert</translation>
    </message>
    <message>
        <source>Default password</source>
        <translation>Standardpasswort</translation>
    </message>
    <message>
        <source>Login limit</source>
        <translation>Anmeldegrenze</translation>
    </message>
    <message>
        <source>Relay broken</source>
        <translation>Relay getrennt</translation>
    </message>
    <message>
        <source>The keyring is closed</source>
        <translation>Der Schlüsselbund ist gesperrt</translation>
    </message>
    <message>
        <source>The password lies in the desktop&apos;s keyring, which does not open it.</source>
        <translation>Das Passwort liegt im Schlüsselbund der Arbeitsumgebung, der sich nicht öffnet.</translation>
    </message>
    <message>
        <source>Unlock the keyring and log in again, or type the password: it is then kept in an encrypted file.</source>
        <translation>Entsperren Sie den Schlüsselbund und melden Sie sich neu an, oder geben Sie das Passwort ein: Es liegt dann in einer verschlüsselten Datei.</translation>
    </message>
</context>
<context>
    <name>vemo_client::LogsPage</name>
    <message>
        <source>Logs</source>
        <translation>Protokolle</translation>
    </message>
    <message>
        <source>Span of time</source>
        <translation>Zeitraum</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Kind of entries</source>
        <translation>Art der Einträge</translation>
    </message>
    <message>
        <source>Every kind</source>
        <translation>Jede Art</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>Channel that the entries are about</source>
        <translation>Kanal, um den es in den Einträgen geht</translation>
    </message>
    <message>
        <source>Every channel</source>
        <translation>Jeder Kanal</translation>
    </message>
    <message>
        <source>Filter by words</source>
        <translation>Nach Wörtern filtern</translation>
    </message>
    <message>
        <source>Export as CSV</source>
        <translation>Als CSV exportieren</translation>
    </message>
    <message>
        <source>Writes all entries that match, of every page, into a file for spreadsheets.</source>
        <translation>Schreibt alle passenden Einträge aller Seiten in eine Datei für Tabellenprogramme.</translation>
    </message>
    <message>
        <source>Nothing was logged in this span.</source>
        <translation>In diesem Zeitraum wurde nichts protokolliert.</translation>
    </message>
    <message>
        <source>Downloads that end, backups, and files that are deleted leave their entries here. Choose another span.</source>
        <translation>Beendete Downloads, Sicherungen und gelöschte Dateien hinterlassen hier Einträge. Wählen Sie einen anderen Zeitraum.</translation>
    </message>
    <message>
        <source>No entry matches the filters.</source>
        <translation>Kein Eintrag entspricht den Filtern.</translation>
    </message>
    <message>
        <source>The words are looked for in device, channel and event.</source>
        <translation>Die Wörter werden in Gerät, Kanal und Ereignis gesucht.</translation>
    </message>
    <message>
        <source>Clear the filters</source>
        <translation>Filter zurücksetzen</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>1 entry, newest first</source>
        <translation>1 Eintrag, neueste zuerst</translation>
    </message>
    <message>
        <source>%1 entries, newest first</source>
        <translation>%1 Einträge, neueste zuerst</translation>
    </message>
    <message>
        <source>CSV files (*.csv)</source>
        <translation>CSV-Dateien (*.csv)</translation>
    </message>
    <message>
        <source>Exporting the log:%1%</source>
        <translation>Protokoll wird exportiert: %1%</translation>
    </message>
    <message>
        <source>1 log entry was exported</source>
        <translation>1 Protokolleintrag wurde exportiert</translation>
    </message>
    <message>
        <source>%1 log entries were exported</source>
        <translation>%1 Protokolleinträge wurden exportiert</translation>
    </message>
    <message>
        <source>Open the folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>The log was not exported</source>
        <translation>Das Protokoll wurde nicht exportiert</translation>
    </message>
</context>
<context>
    <name>vemo_client::LogsTable</name>
    <message>
        <source>No.</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Ereignis</translation>
    </message>
    <message>
        <source>Log entries</source>
        <translation>Protokolleinträge</translation>
    </message>
</context>
<context>
    <name>vemo_client::MainWindow</name>
    <message>
        <source>Stored data</source>
        <translation>Gespeicherte Daten</translation>
    </message>
</context>
<context>
    <name>vemo_client::ModulePages</name>
    <message>
        <source>Playback</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>Files Center</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>Geräte</translation>
    </message>
    <message>
        <source>Live</source>
        <translation>Live</translation>
    </message>
    <message>
        <source>Logs</source>
        <translation>Protokolle</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
</context>
<context>
    <name>vemo_client::NoticeBell</name>
    <message>
        <source>Notices</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>Notices: %1 new</source>
        <translation>Meldungen: %1 neu</translation>
    </message>
    <message>
        <source>Notices: %1 new, %2 of them tell of failures</source>
        <translation>Meldungen: %1 neu, davon %2 über Fehler</translation>
    </message>
    <message>
        <source>%1+</source>
        <translation>%1+</translation>
    </message>
</context>
<context>
    <name>vemo_client::NoticesModel</name>
    <message>
        <source>%1 (%2 times)</source>
        <translation>%1 (%2-mal)</translation>
    </message>
</context>
<context>
    <name>vemo_client::NoticesPopup</name>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Notices</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>Forget all notices</source>
        <translation>Alle Meldungen verwerfen</translation>
    </message>
    <message>
        <source>No notices. What the client has to tell is kept here.</source>
        <translation>Keine Meldungen. Was der Client mitzuteilen hat, wird hier aufbewahrt.</translation>
    </message>
</context>
<context>
    <name>vemo_client::OutPath</name>
    <message>
        <source>%1 is a file; several channels need a folder.</source>
        <translation>%1 ist eine Datei; mehrere Kanäle brauchen einen Ordner.</translation>
    </message>
    <message>
        <source>%1 is neither a file nor a folder.</source>
        <translation>%1 ist weder Datei noch Ordner.</translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be made.</source>
        <translation>Der Ordner %1 kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>The folder %1 does not exist.</source>
        <translation>Der Ordner %1 existiert nicht.</translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be written.</source>
        <translation>In den Ordner %1 kann nicht geschrieben werden.</translation>
    </message>
</context>
<context>
    <name>vemo_client::PasswordEdit</name>
    <message>
        <source>Show the password</source>
        <translation>Passwort anzeigen</translation>
    </message>
    <message>
        <source>Hide the password</source>
        <translation>Passwort verbergen</translation>
    </message>
</context>
<context>
    <name>vemo_client::PictureSaver</name>
    <message>
        <source>Snapshot saved</source>
        <translation>Einzelbild gespeichert</translation>
    </message>
    <message>
        <source>The snapshot could not be saved</source>
        <translation>Das Einzelbild konnte nicht gespeichert werden</translation>
    </message>
</context>
<context>
    <name>vemo_client::PlaybackDays</name>
    <message>
        <source>No list of recordings: click on a time to play, or mark a span</source>
        <translation>Keine Aufnahmeliste: Klicken Sie zum Abspielen auf eine Zeit, oder markieren Sie einen Zeitraum</translation>
    </message>
</context>
<context>
    <name>vemo_client::PlaybackPage</name>
    <message>
        <source>No channel is chosen</source>
        <translation>Kein Kanal ausgewählt</translation>
    </message>
    <message>
        <source>, the first %1 are listed</source>
        <translation>, die ersten %1 sind aufgeführt</translation>
    </message>
    <message>
        <source>%1 of %2 channels could not be searched</source>
        <translation>%1 von %2 Kanälen konnten nicht durchsucht werden</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>The recordings of %1 are searched</source>
        <translation>Die Aufnahmen vom %1 werden gesucht</translation>
    </message>
    <message>
        <source>They appear here channel by channel.</source>
        <translation>Sie erscheinen hier Kanal für Kanal.</translation>
    </message>
    <message>
        <source>Check up to %1 channels, pick a day and press Search.</source>
        <translation>Markieren Sie bis zu %1 Kanäle, wählen Sie einen Tag und klicken Sie auf Suchen.</translation>
    </message>
    <message>
        <source>This recorder has no list of recordings</source>
        <translation>Dieser Rekorder hat keine Aufnahmeliste</translation>
    </message>
    <message>
        <source>Mark a span on the axis, or type two times, and press Download.</source>
        <translation>Markieren Sie einen Zeitraum auf der Achse, oder geben Sie zwei Zeiten ein, und klicken Sie auf Herunterladen.</translation>
    </message>
    <message>
        <source>The recordings could not be searched</source>
        <translation>Die Aufnahmen konnten nicht gesucht werden</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>There is no recording on %1</source>
        <translation>Am %1 gibt es keine Aufnahme</translation>
    </message>
    <message>
        <source>Pick another day, or check other channels.</source>
        <translation>Wählen Sie einen anderen Tag, oder markieren Sie andere Kanäle.</translation>
    </message>
    <message>
        <source>%1 was not searched yet</source>
        <translation>%1 wurde noch nicht durchsucht</translation>
    </message>
    <message>
        <source>Press Search to see what the recorder has.</source>
        <translation>Klicken Sie auf Suchen, um zu sehen, was der Rekorder hat.</translation>
    </message>
    <message>
        <source>Type the login</source>
        <translation>Anmeldedaten eingeben</translation>
    </message>
    <message>
        <source>Recordings as a list</source>
        <translation>Aufnahmen als Liste</translation>
    </message>
    <message>
        <source>Check the key...</source>
        <translation>Schlüssel prüfen...</translation>
    </message>
</context>
<context>
    <name>vemo_client::PlaybackStage</name>
    <message>
        <source>No recording from %1 to %2: playing on from there.</source>
        <translation>Keine Aufnahme von %1 bis %2: Die Wiedergabe geht danach weiter.</translation>
    </message>
    <message>
        <source>There is no further recording on this day.</source>
        <translation>An diesem Tag gibt es keine weitere Aufnahme.</translation>
    </message>
    <message>
        <source>Save the shown picture</source>
        <translation>Angezeigtes Bild speichern</translation>
    </message>
    <message>
        <source>Show all channels</source>
        <translation>Alle Kanäle anzeigen</translation>
    </message>
    <message>
        <source>Enlarge</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Close this channel</source>
        <translation>Diesen Kanal schließen</translation>
    </message>
    <message>
        <source>Check a channel in the list, or drag it here.</source>
        <translation>Markieren Sie einen Kanal in der Liste, oder ziehen Sie ihn hierher.</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Searching for recordings...</source>
        <translation>Aufnahmen werden gesucht...</translation>
    </message>
    <message>
        <source>Loading the picture...</source>
        <translation>Bild wird geladen...</translation>
    </message>
    <message>
        <source>Press Play, or click on the time line.</source>
        <translation>Klicken Sie auf Abspielen oder auf die Zeitachse.</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>No recording from %1 to %2</source>
        <translation>Keine Aufnahme von %1 bis %2</translation>
    </message>
    <message>
        <source>Jump to %1</source>
        <translation>Zu %1 springen</translation>
    </message>
    <message>
        <source>%1
Trying again...</source>
        <translation>%1
Neuer Versuch...</translation>
    </message>
    <message>
        <source>Playback</source>
        <translation>Wiedergabe</translation>
    </message>
</context>
<context>
    <name>vemo_client::PlaybackTransport</name>
    <message>
        <source>10 s back (Left arrow)</source>
        <translation>10 s zurück (Pfeil links)</translation>
    </message>
    <message>
        <source>Frame back (comma)</source>
        <translation>Ein Bild zurück (Komma)</translation>
    </message>
    <message>
        <source>Play (Space)</source>
        <translation>Abspielen (Leertaste)</translation>
    </message>
    <message>
        <source>Frame on (period)</source>
        <translation>Ein Bild vor (Punkt)</translation>
    </message>
    <message>
        <source>10 s on (Right arrow)</source>
        <translation>10 s vor (Pfeil rechts)</translation>
    </message>
    <message>
        <source>Speed ([ slower, ] faster)</source>
        <translation>Tempo ([ langsamer, ] schneller)</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>All channels play the same time</source>
        <translation>Alle Kanäle spielen dieselbe Zeit</translation>
    </message>
    <message>
        <source>Save the shown picture (S)</source>
        <translation>Angezeigtes Bild speichern (S)</translation>
    </message>
    <message>
        <source>One channel</source>
        <translation>Ein Kanal</translation>
    </message>
    <message>
        <source>Four channels</source>
        <translation>Vier Kanäle</translation>
    </message>
    <message>
        <source>Full screen (F)</source>
        <translation>Vollbild (F)</translation>
    </message>
    <message>
        <source>No channel is chosen</source>
        <translation>Kein Kanal ausgewählt</translation>
    </message>
    <message>
        <source>Pause (Space)</source>
        <translation>Pause (Leertaste)</translation>
    </message>
    <message>
        <source>Leave full screen (F)</source>
        <translation>Vollbild verlassen (F)</translation>
    </message>
</context>
<context>
    <name>vemo_client::PowerWords</name>
    <message>
        <source>live view</source>
        <translation>Live-Ansicht</translation>
    </message>
    <message>
        <source>Watch live video, record it, take snapshots</source>
        <translation>Live-Video ansehen, aufnehmen, Einzelbilder speichern</translation>
    </message>
    <message>
        <source>playback</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>Search and play what the recorders hold</source>
        <translation>Suchen und abspielen, was die Rekorder haben</translation>
    </message>
    <message>
        <source>downloads</source>
        <translation>Downloads</translation>
    </message>
    <message>
        <source>Download recordings and plan backups</source>
        <translation>Aufnahmen herunterladen und Sicherungen planen</translation>
    </message>
    <message>
        <source>local recordings</source>
        <translation>lokale Aufnahmen</translation>
    </message>
    <message>
        <source>Play, save and delete local recordings</source>
        <translation>Lokale Aufnahmen abspielen, speichern und löschen</translation>
    </message>
    <message>
        <source>local snapshots</source>
        <translation>lokale Einzelbilder</translation>
    </message>
    <message>
        <source>View, save and delete local snapshots</source>
        <translation>Lokale Einzelbilder ansehen, speichern und löschen</translation>
    </message>
    <message>
        <source>recorders</source>
        <translation>Rekorder</translation>
    </message>
    <message>
        <source>Add, change and remove recorders</source>
        <translation>Rekorder hinzufügen, ändern und entfernen</translation>
    </message>
    <message>
        <source>logs</source>
        <translation>Protokolle</translation>
    </message>
    <message>
        <source>Read and export the logs</source>
        <translation>Protokolle lesen und exportieren</translation>
    </message>
    <message>
        <source>settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Change settings that concern everybody here</source>
        <translation>Einstellungen ändern, die hier alle betreffen</translation>
    </message>
    <message>
        <source>Administrator</source>
        <translation>Administrator</translation>
    </message>
    <message>
        <source>nothing but local files</source>
        <translation>nur lokale Dateien</translation>
    </message>
</context>
<context>
    <name>vemo_client::PowersEdit</name>
    <message>
        <source>Administrator: everything, other users included</source>
        <translation>Administrator: alles, auch die anderen Benutzer</translation>
    </message>
    <message>
        <source>An administrator may do everything.</source>
        <translation>Ein Administrator darf alles.</translation>
    </message>
</context>
<context>
    <name>vemo_client::QueueEdit</name>
    <message>
        <source>The task %1 is in no state for that.</source>
        <translation>Der Zustand von Auftrag %1 lässt das nicht zu.</translation>
    </message>
    <message>
        <source>There is no task %1.</source>
        <translation>Es gibt keinen Auftrag %1.</translation>
    </message>
</context>
<context>
    <name>vemo_client::QueueListing</name>
    <message>
        <source>The recorder refused the login.</source>
        <translation>Der Rekorder hat die Anmeldung abgelehnt.</translation>
    </message>
    <message>
        <source>The recorder could not be reached.</source>
        <translation>Der Rekorder war nicht erreichbar.</translation>
    </message>
    <message>
        <source>The download broke off.</source>
        <translation>Der Download ist abgebrochen.</translation>
    </message>
    <message>
        <source>The file is missing or can&apos;t be used.</source>
        <translation>Die Datei fehlt oder ist nicht verwendbar.</translation>
    </message>
    <message>
        <source>The recorder gave no address to replay from.</source>
        <translation>Der Rekorder nannte keine Wiedergabeadresse.</translation>
    </message>
    <message>
        <source>The reason is not known.</source>
        <translation>Der Grund ist nicht bekannt.</translation>
    </message>
    <message>
        <source>Id</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>Beginn</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>MB</source>
        <translation>MB</translation>
    </message>
    <message>
        <source>File, or reason</source>
        <translation>Datei oder Grund</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>fehlgeschlagen</translation>
    </message>
    <message>
        <source>waiting</source>
        <translation>wartet</translation>
    </message>
    <message>
        <source>paused</source>
        <translation>pausiert</translation>
    </message>
    <message>
        <source>partly</source>
        <translation>teilweise</translation>
    </message>
    <message>
        <source>done</source>
        <translation>fertig</translation>
    </message>
</context>
<context>
    <name>vemo_client::QueueRun</name>
    <message>
        <source>The folder for videos, %1, does not exist.</source>
        <translation>Der Ordner für Videos, %1, existiert nicht.</translation>
    </message>
    <message>
        <source>%1 running, %2 waiting</source>
        <translation>%1 laufen, %2 warten</translation>
    </message>
    <message>
        <source>, %1 to be tried again</source>
        <translation>, %1 werden erneut versucht</translation>
    </message>
    <message>
        <source>%1 tasks failed or are incomplete; see vemo_client queue list.</source>
        <translation>%1 Aufträge sind fehlgeschlagen oder unvollständig; siehe vemo_client queue list.</translation>
    </message>
    <message>
        <source>Interrupted; what had arrived is kept, and the rest waits in the queue.</source>
        <translation>Abgebrochen; was angekommen ist, bleibt erhalten, der Rest wartet in der Warteschlange.</translation>
    </message>
</context>
<context>
    <name>vemo_client::QueueTray</name>
    <message>
        <source>Vemo, download queue: %1</source>
        <translation>Vemo, Download-Warteschlange: %1</translation>
    </message>
    <message>
        <source>1 file</source>
        <translation>1 Datei</translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation>%1 Dateien</translation>
    </message>
    <message>
        <source>All downloads are done: %1</source>
        <translation>Alle Downloads sind fertig: %1</translation>
    </message>
    <message>
        <source>The download queue is empty: %1</source>
        <translation>Die Download-Warteschlange ist leer: %1</translation>
    </message>
    <message>
        <source>What arrived lies in the folder of downloads.</source>
        <translation>Was angekommen ist, liegt im Download-Ordner.</translation>
    </message>
    <message>
        <source>1 download has failed; Download Failure says why.</source>
        <translation>1 Download ist fehlgeschlagen; der Grund steht unter Fehlgeschlagen.</translation>
    </message>
    <message>
        <source>%1 downloads have failed; Download Failure says why.</source>
        <translation>%1 Downloads sind fehlgeschlagen; die Gründe stehen unter Fehlgeschlagen.</translation>
    </message>
</context>
<context>
    <name>vemo_client::QueueVerb</name>
    <message>
        <source>Interrupted.</source>
        <translation>Abgebrochen.</translation>
    </message>
    <message>
        <source>The database could not be written.</source>
        <translation>Die Datenbank konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>%1 tasks were removed.</source>
        <translation>%1 Aufträge wurden entfernt.</translation>
    </message>
    <message>
        <source>%1 of %2 requests are in the queue already.</source>
        <translation>%1 von %2 Anforderungen sind bereits in der Warteschlange.</translation>
    </message>
</context>
<context>
    <name>vemo_client::QueueWatch</name>
    <message>
        <source>%1 running</source>
        <translation>%1 laufen</translation>
    </message>
    <message>
        <source>%1 waiting</source>
        <translation>%1 warten</translation>
    </message>
    <message>
        <source>%1 to be retried</source>
        <translation>%1 werden wiederholt</translation>
    </message>
    <message>
        <source>%1 paused</source>
        <translation>%1 pausiert</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>leer</translation>
    </message>
    <message>
        <source>%1 running, %2 waiting, %3 paused, %4 to be retried</source>
        <translation>%1 laufen, %2 warten, %3 pausiert, %4 werden wiederholt</translation>
    </message>
</context>
<context>
    <name>vemo_client::RecorderAddress</name>
    <message>
        <source>Type the address of the recorder. Example: 192.168.1.20</source>
        <translation>Geben Sie die Adresse des Rekorders ein. Beispiel: 192.168.1.20</translation>
    </message>
    <message>
        <source>The address is longer than any address is.</source>
        <translation>So lang ist keine Adresse.</translation>
    </message>
    <message>
        <source>An address holds no spaces.</source>
        <translation>Eine Adresse enthält keine Leerzeichen.</translation>
    </message>
    <message>
        <source>The address must begin with http, https, rtsp or rtsps.</source>
        <translation>Die Adresse muss mit http, https, rtsp oder rtsps beginnen.</translation>
    </message>
    <message>
        <source>This can&apos;t be read as an address. Example: 192.168.1.20</source>
        <translation>Das ist nicht als Adresse lesbar. Beispiel: 192.168.1.20</translation>
    </message>
</context>
<context>
    <name>vemo_client::RecorderColumn</name>
    <message>
        <source>Filter by channel name</source>
        <translation>Nach Kanalname filtern</translation>
    </message>
    <message>
        <source>Add a recorder</source>
        <translation>Rekorder hinzufügen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>No channel is chosen</source>
        <translation>Kein Kanal ausgewählt</translation>
    </message>
</context>
<context>
    <name>vemo_client::RecorderDialog</name>
    <message>
        <source>Keep it offline</source>
        <translation>Offline behalten</translation>
    </message>
    <message>
        <source>Add a recorder</source>
        <translation>Rekorder hinzufügen</translation>
    </message>
    <message>
        <source>Change the recorder</source>
        <translation>Rekorder ändern</translation>
    </message>
    <message>
        <source>The client logs in at once and keeps the recorder for the next start.</source>
        <translation>Der Client meldet sich sofort an und behält den Rekorder für den nächsten Start.</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>Verbinde...</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
</context>
<context>
    <name>vemo_client::RecorderForm</name>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>192.168.1.20 or https://nvr.example/onvif/device_service</source>
        <translation>192.168.1.20 oder https://nvr.example/onvif/device_service</translation>
    </message>
    <message>
        <source>User name</source>
        <translation>Benutzername</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>Show the password</source>
        <translation>Passwort anzeigen</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>as the recorder calls itself</source>
        <translation>wie der Rekorder sich selbst nennt</translation>
    </message>
    <message>
        <source>unchanged</source>
        <translation>unverändert</translation>
    </message>
    <message>
        <source>IP address or name, with a port where it needs one.</source>
        <translation>IP-Adresse oder Name, wo nötig mit Port.</translation>
    </message>
    <message>
        <source>Replay address: it has no list of recordings, spans of time can be fetched.</source>
        <translation>Wiedergabeadresse: Sie hat keine Aufnahmeliste, Zeiträume lassen sich holen.</translation>
    </message>
    <message>
        <source>ONVIF over %1 at %2</source>
        <translation>ONVIF über %1 unter %2</translation>
    </message>
    <message>
        <source>TLS</source>
        <translation>TLS</translation>
    </message>
    <message>
        <source>HTTP</source>
        <translation>HTTP</translation>
    </message>
    <message>
        <source>Trust this key</source>
        <translation>Diesem Schlüssel vertrauen</translation>
    </message>
    <message>
        <source>Live view alone</source>
        <translation>Nur Live-Ansicht</translation>
    </message>
    <message>
        <source>Recordings by time</source>
        <translation>Aufnahmen nach Zeit</translation>
    </message>
    <message>
        <source>Used for</source>
        <translation>Verwendet für</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Kanäle</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>User and password of the address were put into their own fields.</source>
        <translation>Benutzer und Passwort aus der Adresse wurden in ihre eigenen Felder übernommen.</translation>
    </message>
    <message>
        <source>A stream to watch: it can&apos;t be played back, downloaded or backed up.</source>
        <translation>Eine Quelle zum Ansehen: Wiedergeben, Herunterladen und Sichern sind damit nicht möglich.</translation>
    </message>
    <message>
        <source>Write {channel} in the address where the number of the channel goes.</source>
        <translation>Schreiben Sie {channel} in die Adresse, wo die Kanalnummer steht.</translation>
    </message>
</context>
<context>
    <name>vemo_client::RecorderLogins</name>
    <message>
        <source>The recorder stopped answering.</source>
        <translation>Der Rekorder antwortet nicht mehr.</translation>
    </message>
</context>
<context>
    <name>vemo_client::RecorderSession</name>
    <message>
        <source>%1, channel %2</source>
        <translation>%1, Kanal %2</translation>
    </message>
</context>
<context>
    <name>vemo_client::RecorderTree</name>
    <message>
        <source>Recorders and channels</source>
        <translation>Rekorder und Kanäle</translation>
    </message>
    <message>
        <source>Search this channel</source>
        <translation>Diesen Kanal durchsuchen</translation>
    </message>
    <message>
        <source>Log in again</source>
        <translation>Neu anmelden</translation>
    </message>
    <message>
        <source>Change...</source>
        <translation>Ändern...</translation>
    </message>
    <message>
        <source>Remove...</source>
        <translation>Entfernen...</translation>
    </message>
    <message>
        <source>The recorder is disabled.</source>
        <translation>Der Rekorder ist deaktiviert.</translation>
    </message>
    <message>
        <source>A source for live view alone: it has no recordings.</source>
        <translation>Eine Quelle nur für die Live-Ansicht: Sie hat keine Aufnahmen.</translation>
    </message>
    <message>
        <source>Channel %1</source>
        <translation>Kanal %1</translation>
    </message>
    <message>
        <source>%1, is being played</source>
        <translation>%1, wird gerade abgespielt</translation>
    </message>
</context>
<context>
    <name>vemo_client::RecordersPage</name>
    <message>
        <source>Add your recorders</source>
        <translation>Ihre Rekorder hinzufügen</translation>
    </message>
    <message>
        <source>The client finds recorders in your network by itself; others are added by their address. Their passwords are kept encrypted on this computer.</source>
        <translation>Der Client findet Rekorder in Ihrem Netzwerk selbst; andere werden über ihre Adresse hinzugefügt. Ihre Passwörter werden auf diesem Computer verschlüsselt aufbewahrt.</translation>
    </message>
    <message>
        <source>Look for recorders</source>
        <translation>Rekorder suchen</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Später</translation>
    </message>
</context>
<context>
    <name>vemo_client::RecordingSearch</name>
    <message>
        <source>The recorder did not answer the search for recordings in time.</source>
        <translation>Der Rekorder hat die Aufnahmesuche nicht rechtzeitig beantwortet.</translation>
    </message>
</context>
<context>
    <name>vemo_client::RecordingsTable</name>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Channel Name</source>
        <translation>Kanalname</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>Beginn</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Recordings</source>
        <translation>Aufnahmen</translation>
    </message>
    <message>
        <source>Alarm</source>
        <translation>Alarm</translation>
    </message>
    <message>
        <source>Continuous</source>
        <translation>Dauerhaft</translation>
    </message>
</context>
<context>
    <name>vemo_client::RemoveQuestion</name>
    <message>
        <source>%1 and its password are forgotten. Files, finished downloads and finished backups stay; downloads and backups of it that wait or have failed can&apos;t go on.</source>
        <translation>%1 und das Passwort werden vergessen. Dateien, fertige Downloads und fertige Sicherungen bleiben; wartende oder fehlgeschlagene Downloads und Sicherungen davon können nicht fortgesetzt werden.</translation>
    </message>
    <message>
        <source>%1 recorders and their passwords are forgotten. Files, finished downloads and finished backups stay; downloads and backups of them that wait or have failed can&apos;t go on.</source>
        <translation>%1 Rekorder und ihre Passwörter werden vergessen. Dateien, fertige Downloads und fertige Sicherungen bleiben; wartende oder fehlgeschlagene Downloads und Sicherungen davon können nicht fortgesetzt werden.</translation>
    </message>
    <message>
        <source>Remove the recorder</source>
        <translation>Rekorder entfernen</translation>
    </message>
    <message>
        <source>Remove the recorders</source>
        <translation>Rekorder entfernen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
</context>
<context>
    <name>vemo_client::RenameGroupDialog</name>
    <message>
        <source>Rename the group</source>
        <translation>Gruppe umbenennen</translation>
    </message>
    <message>
        <source>All recorders of the group go along.</source>
        <translation>Alle Rekorder der Gruppe ziehen mit um.</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Name of the group</source>
        <translation>Name der Gruppe</translation>
    </message>
    <message>
        <source>There is a group of this name; the two become one.</source>
        <translation>Es gibt schon eine Gruppe dieses Namens; die beiden werden zu einer.</translation>
    </message>
</context>
<context>
    <name>vemo_client::SearchVerb</name>
    <message>
        <source>Interrupted.</source>
        <translation>Abgebrochen.</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>Beginn</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>alarm</source>
        <translation>Alarm</translation>
    </message>
    <message>
        <source>normal</source>
        <translation>normal</translation>
    </message>
    <message>
        <source>%1: no recording from %2 to %3.</source>
        <translation>%1: keine Aufnahme von %2 bis %3.</translation>
    </message>
</context>
<context>
    <name>vemo_client::SettingsPage</name>
    <message>
        <source>Search settings</source>
        <translation>Einstellungen durchsuchen</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Mend what is marked in red, then the changes can be saved.</source>
        <translation>Berichtigen Sie das rot Markierte, dann lassen sich die Änderungen speichern.</translation>
    </message>
    <message>
        <source>1 change not saved</source>
        <translation>1 Änderung nicht gespeichert</translation>
    </message>
    <message>
        <source>%1 changes not saved</source>
        <translation>%1 Änderungen nicht gespeichert</translation>
    </message>
    <message>
        <source>Changes that are not saved</source>
        <translation>Nicht gespeicherte Änderungen</translation>
    </message>
    <message>
        <source>1 change of the settings is not saved. Give it up and go on?</source>
        <translation>1 Änderung der Einstellungen ist nicht gespeichert. Verwerfen und fortfahren?</translation>
    </message>
    <message>
        <source>%1 changes of the settings are not saved. Give them up and go on?</source>
        <translation>%1 Änderungen der Einstellungen sind nicht gespeichert. Verwerfen und fortfahren?</translation>
    </message>
    <message>
        <source>These settings concern everybody on this computer. Only users with the power to change settings may change them.</source>
        <translation>Diese Einstellungen betreffen alle auf diesem Computer. Nur Benutzer mit dem Recht, Einstellungen zu ändern, dürfen sie ändern.</translation>
    </message>
</context>
<context>
    <name>vemo_client::SettingsSections</name>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation>Wie die Arbeitsumgebung</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Holds from the next start of the client on.</source>
        <translation>Gilt ab dem nächsten Start des Clients.</translation>
    </message>
    <message>
        <source>When you log in to this computer</source>
        <translation>Bei Ihrer Anmeldung am Computer</translation>
    </message>
    <message>
        <source>Start the client</source>
        <translation>Client starten</translation>
    </message>
    <message>
        <source>Logs</source>
        <translation>Protokolle</translation>
    </message>
    <message>
        <source>What is kept of what happened to files</source>
        <translation>Was davon aufbewahrt wird, was mit Dateien geschah</translation>
    </message>
    <message>
        <source>Keep log entries</source>
        <translation>Protokolleinträge aufbewahren</translation>
    </message>
    <message>
        <source>30 days</source>
        <translation>30 Tage</translation>
    </message>
    <message>
        <source>90 days</source>
        <translation>90 Tage</translation>
    </message>
    <message>
        <source>1 year</source>
        <translation>1 Jahr</translation>
    </message>
    <message>
        <source>3 years</source>
        <translation>3 Jahre</translation>
    </message>
    <message>
        <source>As long as there is room</source>
        <translation>Solange Platz ist</translation>
    </message>
    <message>
        <source>Never more than 1,000,000 entries; the oldest go first.</source>
        <translation>Nie mehr als 1.000.000 Einträge; die ältesten gehen zuerst.</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>Speicher</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Where files are written</source>
        <translation>Wohin Dateien geschrieben werden</translation>
    </message>
    <message>
        <source>Download path</source>
        <translation>Download-Ordner</translation>
    </message>
    <message>
        <source>Downloads that run already end where they were begun.</source>
        <translation>Bereits laufende Downloads enden dort, wo sie begonnen wurden.</translation>
    </message>
    <message>
        <source>Recordings backup path</source>
        <translation>Ordner für Sicherungen</translation>
    </message>
    <message>
        <source>A backup stops when less than 1 GB is free. A notice appears below 10 GB.</source>
        <translation>Eine Sicherung hält an, wenn weniger als 1 GB frei ist. Unter 10 GB erscheint eine Meldung.</translation>
    </message>
    <message>
        <source>Local recording and snapshot path</source>
        <translation>Ordner für lokale Aufnahmen und Einzelbilder</translation>
    </message>
    <message>
        <source>Recordings of live video and snapshots lie in folders of their own below it.</source>
        <translation>Aufnahmen der Live-Ansicht und Einzelbilder liegen darunter in eigenen Ordnern.</translation>
    </message>
    <message>
        <source>Downloads and backups lie one in the other. Choose folders of their own, so that neither fills the other&apos;s.</source>
        <translation>Downloads und Sicherungen liegen ineinander. Wählen Sie eigene Ordner, damit keines den Platz des anderen füllt.</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Names and kinds</source>
        <translation>Namen und Arten</translation>
    </message>
    <message>
        <source>Date format</source>
        <translation>Datumsformat</translation>
    </message>
    <message>
        <source>Used in tables, file names and logs.</source>
        <translation>Wird in Tabellen, Dateinamen und Protokollen verwendet.</translation>
    </message>
    <message>
        <source>Snapshot format</source>
        <translation>Einzelbildformat</translation>
    </message>
    <message>
        <source>No limit</source>
        <translation>Keine Grenze</translation>
    </message>
    <message>
        <source>%1 GB</source>
        <translation>%1 GB</translation>
    </message>
    <message>
        <source>Largest file</source>
        <translation>Maximale Dateigröße</translation>
    </message>
    <message>
        <source>then the download goes on in a new file</source>
        <translation>danach geht der Download in einer neuen Datei weiter</translation>
    </message>
    <message>
        <source>Behaviour</source>
        <translation>Verhalten</translation>
    </message>
    <message>
        <source>When the client starts</source>
        <translation>Beim Start des Clients</translation>
    </message>
    <message>
        <source>Go on with downloads that were waiting</source>
        <translation>Wartende Downloads fortsetzen</translation>
    </message>
    <message>
        <source>When a copy is deleted</source>
        <translation>Beim Löschen einer Kopie</translation>
    </message>
    <message>
        <source>Move files to the recycle bin where the drive has one</source>
        <translation>Dateien in den Papierkorb verschieben, wo das Laufwerk einen hat</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>Downloads</translation>
    </message>
    <message>
        <source>Network</source>
        <translation>Netzwerk</translation>
    </message>
    <message>
        <source>Highest rate</source>
        <translation>Maximale Datenrate</translation>
    </message>
    <message>
        <source>MB/s</source>
        <translation>MB/s</translation>
    </message>
    <message>
        <source>For all downloads and backups together. Holds at once, for those that run as well.</source>
        <translation>Für alle Downloads und Sicherungen zusammen. Gilt sofort, auch für laufende.</translation>
    </message>
    <message>
        <source>Readable time</source>
        <translation>Lesbare Zeit</translation>
    </message>
    <message>
        <source>Wall clock</source>
        <translation>Uhrzeit</translation>
    </message>
    <message>
        <source>Add a text track with the recording&apos;s time to every file</source>
        <translation>Jeder Datei eine Textspur mit der Zeit der Aufnahme hinzufügen</translation>
    </message>
    <message>
        <source>Ordinary players show it as subtitles. The picture itself is not changed.</source>
        <translation>Gewöhnliche Player zeigen sie als Untertitel. Das Bild selbst wird nicht verändert.</translation>
    </message>
    <message>
        <source>Recordings Backup</source>
        <translation>Sicherung der Aufnahmen</translation>
    </message>
    <message>
        <source>Plan</source>
        <translation>Plan</translation>
    </message>
    <message>
        <source>What is backed up, and when</source>
        <translation>Was wann gesichert wird</translation>
    </message>
    <message>
        <source>Times of day</source>
        <translation>Tageszeiten</translation>
    </message>
    <message>
        <source>Days, channels and times of day are chosen on the page Recordings Backup of the Files Center.</source>
        <translation>Tage, Kanäle und Tageszeiten werden unter Dateien auf der Seite Sicherung der Aufnahmen gewählt.</translation>
    </message>
    <message>
        <source>Open Files Center</source>
        <translation>Seite Dateien öffnen</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>The folder of backups is chosen under Storage.</source>
        <translation>Der Ordner für Sicherungen wird unter Speicher gewählt.</translation>
    </message>
    <message>
        <source>Open Storage</source>
        <translation>Speicher öffnen</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Darstellung</translation>
    </message>
    <message>
        <source>Look</source>
        <translation>Aussehen</translation>
    </message>
    <message>
        <source>Yours alone</source>
        <translation>Gilt nur für Sie</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Design</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Users</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>Tables</source>
        <translation>Tabellen</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Player</source>
        <translation>Player</translation>
    </message>
    <message>
        <source>Notifications</source>
        <translation>Benachrichtigungen</translation>
    </message>
    <message>
        <source>In the window</source>
        <translation>Im Fenster</translation>
    </message>
    <message>
        <source>The bell keeps every notice, shown or not</source>
        <translation>Die Glocke bewahrt jede Meldung auf, ob gezeigt oder nicht</translation>
    </message>
    <message>
        <source>Good news</source>
        <translation>Gute Nachrichten</translation>
    </message>
    <message>
        <source>Show a notice when something is done</source>
        <translation>Meldung zeigen, wenn etwas fertig ist</translation>
    </message>
    <message>
        <source>Warnings</source>
        <translation>Warnungen</translation>
    </message>
    <message>
        <source>Show a notice when something needs care</source>
        <translation>Meldung zeigen, wenn etwas Aufmerksamkeit braucht</translation>
    </message>
    <message>
        <source>Errors are always shown.</source>
        <translation>Fehler werden immer gezeigt.</translation>
    </message>
    <message>
        <source>On the desktop</source>
        <translation>Auf dem Desktop</translation>
    </message>
    <message>
        <source>Tell when the queue is done and the window is not being looked at</source>
        <translation>Melden, wenn die Warteschlange fertig ist und das Fenster nicht im Blick ist</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Places</source>
        <translation>Orte</translation>
    </message>
    <message>
        <source>Where the client keeps what it knows</source>
        <translation>Wo der Client aufbewahrt, was er weiß</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Daten</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Program log</source>
        <translation>Programmprotokoll</translation>
    </message>
    <message>
        <source>Libraries</source>
        <translation>Bibliotheken</translation>
    </message>
    <message>
        <source>The client stands on the work of others</source>
        <translation>Der Client baut auf der Arbeit anderer auf</translation>
    </message>
</context>
<context>
    <name>vemo_client::ShellWt</name>
    <message>
        <source>The password could not be kept</source>
        <translation>Das Passwort konnte nicht gespeichert werden</translation>
    </message>
    <message>
        <source>It holds while the client runs; after the next start it is asked for again.</source>
        <translation>Es gilt, solange der Client läuft; nach dem nächsten Start wird wieder danach gefragt.</translation>
    </message>
    <message>
        <source>Quit Vemo?</source>
        <translation>Vemo beenden?</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>1 is in it already.</source>
        <translation>1 ist bereits darin.</translation>
    </message>
    <message>
        <source>%1 are in it already.</source>
        <translation>%1 sind bereits darin.</translation>
    </message>
    <message>
        <source>1 recording was added to the queue</source>
        <translation>1 Aufnahme wurde in die Warteschlange gestellt</translation>
    </message>
    <message>
        <source>%1 recordings were added to the queue</source>
        <translation>%1 Aufnahmen wurden in die Warteschlange gestellt</translation>
    </message>
    <message>
        <source>Up to five are fetched at a time.</source>
        <translation>Bis zu fünf werden gleichzeitig geholt.</translation>
    </message>
    <message>
        <source>Nothing was added to the queue</source>
        <translation>Nichts wurde in die Warteschlange gestellt</translation>
    </message>
    <message>
        <source>Show the queue</source>
        <translation>Warteschlange anzeigen</translation>
    </message>
</context>
<context>
    <name>vemo_client::ShortcutsWt</name>
    <message>
        <source>Ctrl</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Go to the next area: top bar, navigation, tool bar, content, status bar</source>
        <translation>Zum nächsten Bereich: obere Leiste, Navigation, Werkzeugleiste, Inhalt, Statusleiste</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Go to the next control in reading order</source>
        <translation>Zum nächsten Bedienelement in Lesereihenfolge</translation>
    </message>
    <message>
        <source>Close what lies on top</source>
        <translation>Schließen, was obenauf liegt</translation>
    </message>
    <message>
        <source>Go from row to row</source>
        <translation>Von Zeile zu Zeile gehen</translation>
    </message>
    <message>
        <source>Check or uncheck the row</source>
        <translation>Zeile markieren oder Markierung aufheben</translation>
    </message>
    <message>
        <source>Do the row&apos;s first action</source>
        <translation>Erste Aktion der Zeile ausführen</translation>
    </message>
    <message>
        <source>Ask to delete what is checked</source>
        <translation>Löschen des Markierten anfragen</translation>
    </message>
    <message>
        <source>Select all rows</source>
        <translation>Alle Zeilen auswählen</translation>
    </message>
    <message>
        <source>Go to the filter</source>
        <translation>Zum Filter gehen</translation>
    </message>
    <message>
        <source>Open the row&apos;s menu</source>
        <translation>Menü der Zeile öffnen</translation>
    </message>
    <message>
        <source>Go from picture to picture</source>
        <translation>Von Bild zu Bild gehen</translation>
    </message>
    <message>
        <source>Check or uncheck the picture</source>
        <translation>Bild markieren oder Markierung aufheben</translation>
    </message>
    <message>
        <source>Open the picture</source>
        <translation>Bild öffnen</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>Abspielen oder Pause</translation>
    </message>
    <message>
        <source>One picture back or on</source>
        <translation>Ein Bild zurück oder vor</translation>
    </message>
    <message>
        <source>10 s back or on</source>
        <translation>10 s zurück oder vor</translation>
    </message>
    <message>
        <source>Slower or faster</source>
        <translation>Langsamer oder schneller</translation>
    </message>
    <message>
        <source>Keep the picture as a snapshot</source>
        <translation>Bild als Einzelbild speichern</translation>
    </message>
    <message>
        <source>Full screen on or off</source>
        <translation>Vollbild ein oder aus</translation>
    </message>
</context>
<context>
    <name>vemo_client::SpanBar</name>
    <message>
        <source>Begin of the span</source>
        <translation>Beginn des Zeitraums</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Bis</translation>
    </message>
    <message>
        <source>End of the span</source>
        <translation>Ende des Zeitraums</translation>
    </message>
    <message>
        <source>Clear the span</source>
        <translation>Zeitraum aufheben</translation>
    </message>
    <message>
        <source>The end must lie behind the begin.</source>
        <translation>Das Ende muss nach dem Beginn liegen.</translation>
    </message>
    <message>
        <source>Dragging on the time line marks a span</source>
        <translation>Ziehen auf der Zeitachse markiert einen Zeitraum</translation>
    </message>
    <message>
        <source>End of the span; 00:00:00 means the end of the day</source>
        <translation>Ende des Zeitraums; 00:00:00 bedeutet das Ende des Tages</translation>
    </message>
</context>
<context>
    <name>vemo_client::StandingWords</name>
    <message>
        <source>Find recorders on the network</source>
        <translation>Rekorder im Netzwerk suchen</translation>
    </message>
    <message>
        <source>Recorders that speak ONVIF answer by themselves. Choose which to add; all are logged in to with the same user and password, and how each login goes is shown in the list.</source>
        <translation>Rekorder, die ONVIF sprechen, antworten von selbst. Wählen Sie aus, welche hinzugefügt werden; an allen wird mit demselben Benutzer und Passwort angemeldet, und der Verlauf jeder Anmeldung steht in der Liste.</translation>
    </message>
    <message>
        <source>Search again</source>
        <translation>Erneut suchen</translation>
    </message>
    <message>
        <source>Time of the search</source>
        <translation>Suchdauer</translation>
    </message>
    <message>
        <source>Add by address...</source>
        <translation>Über Adresse hinzufügen...</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Recorders that answered</source>
        <translation>Rekorder, die geantwortet haben</translation>
    </message>
    <message>
        <source>User name</source>
        <translation>Benutzername</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>New address</source>
        <translation>Neue Adresse</translation>
    </message>
    <message>
        <source>Already added</source>
        <translation>Bereits hinzugefügt</translation>
    </message>
</context>
<context>
    <name>vemo_client::StatusBar</name>
    <message>
        <source>%1 MB/s</source>
        <translation>%1 MB/s</translation>
    </message>
    <message>
        <source>less than a minute left</source>
        <translation>noch weniger als eine Minute</translation>
    </message>
    <message>
        <source>about %1 min left</source>
        <translation>noch etwa %1 min</translation>
    </message>
    <message>
        <source>about %1 h %2 min left</source>
        <translation>noch etwa %1 h %2 min</translation>
    </message>
    <message>
        <source>Queue</source>
        <translation>Warteschlange</translation>
    </message>
    <message>
        <source>Download queue: %1</source>
        <translation>Download-Warteschlange: %1</translation>
    </message>
    <message>
        <source>%1 of %2 recorders offline</source>
        <translation>%1 von %2 Rekordern offline</translation>
    </message>
    <message>
        <source>Shows the recorder and why it is not logged in</source>
        <translation>Zeigt den Rekorder und warum er nicht angemeldet ist</translation>
    </message>
    <message>
        <source>What all downloads together receive: %1</source>
        <translation>Was alle Downloads zusammen empfangen: %1</translation>
    </message>
    <message>
        <source>%1 %2 free</source>
        <translation>%1 %2 frei</translation>
    </message>
    <message>
        <source>%1 %2 free of %3</source>
        <translation>%1 %2 frei von %3</translation>
    </message>
    <message>
        <source>, full: no download can start</source>
        <translation>, voll: kein Download kann starten</translation>
    </message>
    <message>
        <source>, full</source>
        <translation>, voll</translation>
    </message>
    <message>
        <source>, nearly full</source>
        <translation>, fast voll</translation>
    </message>
    <message>
        <source>%1
Opens the folder of downloads: %2</source>
        <translation>%1
Öffnet den Download-Ordner: %2</translation>
    </message>
</context>
<context>
    <name>vemo_client::StoredRecorder</name>
    <message>
        <source>The password is missing: give --password-file or set VEMO_PASSWORD.</source>
        <translation>Das Passwort fehlt: Geben Sie --password-file an oder setzen Sie VEMO_PASSWORD.</translation>
    </message>
    <message>
        <source>The password could not be kept; nothing was added to the queue.</source>
        <translation>Das Passwort konnte nicht gespeichert werden; nichts wurde in die Warteschlange gestellt.</translation>
    </message>
</context>
<context>
    <name>vemo_client::StrengthBar</name>
    <message>
        <source>Weak</source>
        <translation>Schwach</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>Very strong</source>
        <translation>Sehr stark</translation>
    </message>
    <message>
        <source>Strong</source>
        <translation>Stark</translation>
    </message>
    <message>
        <source>Strength of the password: %1</source>
        <translation>Stärke des Passworts: %1</translation>
    </message>
</context>
<context>
    <name>vemo_client::ThemeButton</name>
    <message>
        <source>Theme</source>
        <translation>Design</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation>Wie die Arbeitsumgebung</translation>
    </message>
</context>
<context>
    <name>vemo_client::TimeText</name>
    <message>
        <source>&quot;%1&quot; is not a time; write it as 2026-01-10T08:00:00.</source>
        <translation>&quot;%1&quot; ist keine Zeit; schreiben Sie sie als 2026-01-10T08:00:00.</translation>
    </message>
    <message>
        <source>There is no such time as &quot;%1&quot;.</source>
        <translation>Die Zeit &quot;%1&quot; gibt es nicht.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; does not exist on this computer&apos;s clock: summer time begins then.</source>
        <translation>&quot;%1&quot; gibt es auf der Uhr dieses Computers nicht: Da beginnt die Sommerzeit.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has an offset that no place on earth has.</source>
        <translation>&quot;%1&quot; hat einen Zeitversatz, den kein Ort der Erde hat.</translation>
    </message>
</context>
<context>
    <name>vemo_client::TitledDialog</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>vemo_client::TopBar</name>
    <message>
        <source>Guide</source>
        <translation>Handbuch</translation>
    </message>
</context>
<context>
    <name>vemo_client::UserDialog</name>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Add a user</source>
        <translation>Benutzer hinzufügen</translation>
    </message>
    <message>
        <source>What %1 may do</source>
        <translation>Was %1 darf</translation>
    </message>
    <message>
        <source>A new password for %1</source>
        <translation>Neues Passwort für %1</translation>
    </message>
    <message>
        <source>Change your password</source>
        <translation>Eigenes Passwort ändern</translation>
    </message>
    <message>
        <source>The user logs in on this computer with this name and password.</source>
        <translation>Der Benutzer meldet sich auf diesem Computer mit diesem Namen und Passwort an.</translation>
    </message>
    <message>
        <source>It holds from the next login of %1 on.</source>
        <translation>Es gilt ab der nächsten Anmeldung von %1.</translation>
    </message>
    <message>
        <source>The old one stops working at once, and a lock after wrong passwords ends.</source>
        <translation>Das alte gilt sofort nicht mehr, und eine Sperre nach falschen Passwörtern endet.</translation>
    </message>
    <message>
        <source>Where you stay logged in, the password is asked for once more.</source>
        <translation>Wo Sie angemeldet bleiben, wird noch einmal nach dem Passwort gefragt.</translation>
    </message>
    <message>
        <source>User name</source>
        <translation>Benutzername</translation>
    </message>
    <message>
        <source>Current password</source>
        <translation>Aktuelles Passwort</translation>
    </message>
    <message>
        <source>New password</source>
        <translation>Neues Passwort</translation>
    </message>
    <message>
        <source>Repeat the password</source>
        <translation>Passwort wiederholen</translation>
    </message>
    <message>
        <source>May do</source>
        <translation>Darf</translation>
    </message>
    <message>
        <source>The current password is missing.</source>
        <translation>Das aktuelle Passwort fehlt.</translation>
    </message>
    <message>
        <source>The two passwords differ</source>
        <translation>Die beiden Passwörter sind verschieden</translation>
    </message>
</context>
<context>
    <name>vemo_client::UserMenu</name>
    <message>
        <source>Change password...</source>
        <translation>Passwort ändern...</translation>
    </message>
    <message>
        <source>Log out</source>
        <translation>Abmelden</translation>
    </message>
    <message>
        <source>Logged in as %1</source>
        <translation>Angemeldet als %1</translation>
    </message>
</context>
<context>
    <name>vemo_client::UserRow</name>
    <message>
        <source>What %1 may do</source>
        <translation>Was %1 darf</translation>
    </message>
    <message>
        <source>A new password for %1</source>
        <translation>Neues Passwort für %1</translation>
    </message>
    <message>
        <source>Disable %1</source>
        <translation>%1 deaktivieren</translation>
    </message>
    <message>
        <source>Enable %1</source>
        <translation>%1 aktivieren</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>%1 entfernen</translation>
    </message>
    <message>
        <source>You can&apos;t do that to yourself; another administrator can.</source>
        <translation>Das können Sie nicht an sich selbst tun; ein anderer Administrator kann es.</translation>
    </message>
    <message>
        <source>Disabled. %1</source>
        <translation>Deaktiviert. %1</translation>
    </message>
    <message>
        <source>%1. Never logged in</source>
        <translation>%1. Noch nie angemeldet</translation>
    </message>
    <message>
        <source>%1. Last login %2</source>
        <translation>%1. Letzte Anmeldung %2</translation>
    </message>
    <message>
        <source>%1 (you)</source>
        <translation>%1 (Sie)</translation>
    </message>
</context>
<context>
    <name>vemo_client::UserVerb</name>
    <message>
        <source>%1 The accounts were kept under another name; they begin anew.</source>
        <translation>%1 Die Konten wurden unter anderem Namen aufbewahrt; sie fangen neu an.</translation>
    </message>
    <message>
        <source>disabled</source>
        <translation>deaktiviert</translation>
    </message>
    <message>
        <source>administrator</source>
        <translation>Administrator</translation>
    </message>
    <message>
        <source>powers %1</source>
        <translation>Rechte %1</translation>
    </message>
    <message>
        <source>That %1 stays logged in could not be stored.</source>
        <translation>Dass %1 angemeldet bleibt, konnte nicht gespeichert werden.</translation>
    </message>
</context>
<context>
    <name>vemo_client::UserVerbOptions</name>
    <message>
        <source>Name of the user.</source>
        <translation>Name des Benutzers.</translation>
    </message>
    <message>
        <source>name</source>
        <translation>name</translation>
    </message>
    <message>
        <source>File whose first line is the user&apos;s password; &quot;-&quot; reads it from the standard input.</source>
        <translation>Datei, deren erste Zeile das Passwort des Benutzers ist; &quot;-&quot; liest es von der Standardeingabe.</translation>
    </message>
    <message>
        <source>file</source>
        <translation>file</translation>
    </message>
    <message>
        <source>What the user may do, of: live, playback, download, recordings, snapshots, devices, logs, settings.</source>
        <translation>Was der Benutzer darf, aus: live, playback, download, recordings, snapshots, devices, logs, settings.</translation>
    </message>
    <message>
        <source>list</source>
        <translation>list</translation>
    </message>
    <message>
        <source>The user may do everything and manages the others.</source>
        <translation>Der Benutzer darf alles und verwaltet die anderen.</translation>
    </message>
    <message>
        <source>The window opens for this user without asking for the password.</source>
        <translation>Das Fenster öffnet sich für diesen Benutzer ohne Passwortabfrage.</translation>
    </message>
</context>
<context>
    <name>vemo_client::UsersSettingsWt</name>
    <message>
        <source>Accounts</source>
        <translation>Konten</translation>
    </message>
    <message>
        <source>Add a user</source>
        <translation>Benutzer hinzufügen</translation>
    </message>
    <message>
        <source>Your password</source>
        <translation>Ihr Passwort</translation>
    </message>
    <message>
        <source>You are logged in as %1. A new password holds from now on.</source>
        <translation>Sie sind als %1 angemeldet. Ein neues Passwort gilt ab sofort.</translation>
    </message>
    <message>
        <source>Change password</source>
        <translation>Passwort ändern</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>%1 entfernen</translation>
    </message>
    <message>
        <source>The user can&apos;t log in any more. Downloads, recordings and logs stay.</source>
        <translation>Der Benutzer kann sich nicht mehr anmelden. Downloads, Aufnahmen und Protokolle bleiben.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
</context>
<context>
    <name>vemo_client::VerbFolder</name>
    <message>
        <source>The data folder %1 can&apos;t be used.</source>
        <translation>Der Datenordner %1 kann nicht verwendet werden.</translation>
    </message>
</context>
<context>
    <name>vemo_client::VideoTileWt</name>
    <message>
        <source>%1 %2 x %3</source>
        <translation>%1 %2 x %3</translation>
    </message>
    <message>
        <source>%1 %2 x %3, %4 fps</source>
        <translation>%1 %2 x %3, %4 fps</translation>
    </message>
    <message>
        <source>Empty tile</source>
        <translation>Leere Kachel</translation>
    </message>
    <message>
        <source>Recording. %1</source>
        <translation>Aufnahme läuft. %1</translation>
    </message>
</context>
<context>
    <name>vemo_client::ViewNameDialog</name>
    <message>
        <source>Name of the view</source>
        <translation>Name der Ansicht</translation>
    </message>
    <message>
        <source>The view needs a name.</source>
        <translation>Die Ansicht braucht einen Namen.</translation>
    </message>
</context>
<context>
    <name>vemo_client::WindowLock</name>
    <message>
        <source>A window or another run is at work in the data folder %1; close it first.</source>
        <translation>Im Datenordner %1 arbeitet ein Fenster oder ein anderer Lauf; schließen Sie es zuerst.</translation>
    </message>
    <message>
        <source>The data folder %1 can&apos;t be used.</source>
        <translation>Der Datenordner %1 kann nicht verwendet werden.</translation>
    </message>
</context>
<context>
    <name>vemo_client::WindowRun</name>
    <message>
        <source>A window is open on the data folder %1 already; it was asked to come to the front.</source>
        <translation>Im Datenordner %1 ist bereits ein Fenster offen; es wurde nach vorn gebeten.</translation>
    </message>
    <message>
        <source>The data folder is in use</source>
        <translation>Der Datenordner ist in Gebrauch</translation>
    </message>
    <message>
        <source>Another vemo_client works on it and shows no window. Wait until it is done, or end it.</source>
        <translation>Ein anderer vemo_client arbeitet darin und zeigt kein Fenster. Warten Sie, bis er fertig ist, oder beenden Sie ihn.</translation>
    </message>
</context>
<context>
    <name>vemo_data::Database::Worker</name>
    <message>
        <source>the file is read-only</source>
        <translation>die Datei ist schreibgeschützt</translation>
    </message>
    <message>
        <source>the file can&apos;t be written</source>
        <translation>die Datei kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>The database was written by a newer version. It was set aside as %1 and an empty one begun.</source>
        <translation>Die Datenbank wurde von einer neueren Version geschrieben. Sie wurde als %1 beiseitegelegt und eine leere begonnen.</translation>
    </message>
    <message>
        <source>The database was damaged (%1). It was set aside as %2 and an empty one begun.</source>
        <translation>Die Datenbank war beschädigt (%1). Sie wurde als %2 beiseitegelegt und eine leere begonnen.</translation>
    </message>
    <message>
        <source>The database %1 can&apos;t be opened: %2. Changes are not kept.</source>
        <translation>Die Datenbank %1 kann nicht geöffnet werden: %2. Änderungen werden nicht behalten.</translation>
    </message>
    <message>
        <source>A change could not be saved in %1: %2</source>
        <translation>Eine Änderung konnte nicht in %1 gespeichert werden: %2</translation>
    </message>
    <message>
        <source>the database refused it</source>
        <translation>die Datenbank hat sie abgelehnt</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::AddBackupTasksToolWt</name>
    <message>
        <source>Add backup tasks</source>
        <translation>Sicherungsaufträge hinzufügen</translation>
    </message>
    <message>
        <source>Please Select The Backup Channels</source>
        <translation>Zu sichernde Kanäle auswählen</translation>
    </message>
    <message>
        <source>Tips:Only support Nuvira 2.0 device to backup</source>
        <translation>Hinweis: Die Sicherung wird nur für Geräte mit Nuvira 2.0 unterstützt</translation>
    </message>
    <message>
        <source>Please Set The Backup Time Segments</source>
        <translation>Zeitabschnitte der Sicherung festlegen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>for %1</source>
        <translation>für %1</translation>
    </message>
    <message>
        <source>1 channel selected</source>
        <translation>1 Kanal ausgewählt</translation>
    </message>
    <message>
        <source>%1 channels selected</source>
        <translation>%1 Kanäle ausgewählt</translation>
    </message>
    <message>
        <source>%1 of %2 tasks on this day</source>
        <translation>%1 von %2 Aufträgen an diesem Tag</translation>
    </message>
    <message>
        <source>Please select Nuvira 2.0 device channels</source>
        <translation>Bitte wählen Sie Kanäle von Geräten mit Nuvira 2.0 aus</translation>
    </message>
    <message>
        <source>A maximum of %1 tasks can be added in one day, %2 have been added,%3 to be added, please reduce the selected channels</source>
        <translation>An einem Tag sind höchstens %1 Aufträge möglich; %2 sind vorhanden, %3 sollen hinzukommen. Bitte wählen Sie weniger Kanäle</translation>
    </message>
    <message>
        <source>Please set backup time segments</source>
        <translation>Bitte legen Sie Zeitabschnitte fest</translation>
    </message>
    <message>
        <source>Failed to add backup tasks</source>
        <translation>Die Sicherungsaufträge konnten nicht hinzugefügt werden</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupAxisWt</name>
    <message>
        <source>Time segment</source>
        <translation>Zeitabschnitt</translation>
    </message>
    <message>
        <source>Backed up</source>
        <translation>Gesichert</translation>
    </message>
    <message>
        <source>No recording</source>
        <translation>Keine Aufnahme</translation>
    </message>
    <message>
        <source>On the recorder</source>
        <translation>Auf dem Rekorder</translation>
    </message>
    <message>
        <source>Alarm</source>
        <translation>Alarm</translation>
    </message>
    <message>
        <source>Time axis</source>
        <translation>Zeitachse</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupDeviceCheck</name>
    <message>
        <source>Failed to start backup:device offline</source>
        <translation>Sicherung nicht gestartet: Gerät offline</translation>
    </message>
    <message>
        <source>Failed to start backup:device uses weak password</source>
        <translation>Sicherung nicht gestartet: Das Gerät hat ein schwaches Passwort</translation>
    </message>
    <message>
        <source>Failed to start backup:wrong user name or password for connecting device</source>
        <translation>Sicherung nicht gestartet: Benutzername oder Passwort für das Gerät ist falsch</translation>
    </message>
    <message>
        <source>Failed to start backup:the connection limit of the device has been reached</source>
        <translation>Sicherung nicht gestartet: Die Verbindungsgrenze des Geräts ist erreicht</translation>
    </message>
    <message>
        <source>Failed to start backup:device uses default password</source>
        <translation>Sicherung nicht gestartet: Das Gerät hat noch das Standardpasswort</translation>
    </message>
    <message>
        <source>Failed to start backup:device not active</source>
        <translation>Sicherung nicht gestartet: Das Gerät ist nicht aktiviert</translation>
    </message>
    <message>
        <source>Failed to start backup:device login is locked</source>
        <translation>Sicherung nicht gestartet: Die Anmeldung am Gerät ist gesperrt</translation>
    </message>
    <message>
        <source>Failed to start backup:the login limit of the device has been reached</source>
        <translation>Sicherung nicht gestartet: Die Anmeldegrenze des Geräts ist erreicht</translation>
    </message>
    <message>
        <source>Failed to start backup:device relay connection broken</source>
        <translation>Sicherung nicht gestartet: Die Relay-Verbindung zum Gerät ist getrennt</translation>
    </message>
    <message>
        <source>Failed to start backup:device status unknown</source>
        <translation>Sicherung nicht gestartet: Der Zustand des Geräts ist unbekannt</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupExport</name>
    <message>
        <source>Select Export Path</source>
        <translation>Exportordner auswählen</translation>
    </message>
    <message>
        <source>No backup files available for export</source>
        <translation>Keine Sicherungsdateien zum Exportieren vorhanden</translation>
    </message>
    <message>
        <source>Files can&apos;t be written to %1, please select another folder</source>
        <translation>In %1 können keine Dateien geschrieben werden, bitte wählen Sie einen anderen Ordner</translation>
    </message>
    <message>
        <source>Disk not detected, please try again later, disk name:%1</source>
        <translation>Datenträger nicht erkannt, bitte versuchen Sie es später erneut. Datenträger: %1</translation>
    </message>
    <message>
        <source>The disk space is insufficient, total file size:%1M, disk free space:%2M, disk name:%3</source>
        <translation>Nicht genug Speicherplatz. Gesamtgröße der Dateien: %1 MB, frei: %2 MB, Datenträger: %3</translation>
    </message>
    <message>
        <source>Failed to export file:%1</source>
        <translation>Datei konnte nicht exportiert werden: %1</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>Export backup files finished, files total count:%1, success count:%2, failure count:%3</source>
        <translation>Export der Sicherungsdateien beendet. Dateien: %1, erfolgreich: %2, fehlgeschlagen: %3</translation>
    </message>
    <message>
        <source>Export backup files cancelled, files that were exported before:%1</source>
        <translation>Export der Sicherungsdateien abgebrochen. Bis dahin exportierte Dateien: %1</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupLegendWt</name>
    <message>
        <source>Time segment</source>
        <translation>Zeitabschnitt</translation>
    </message>
    <message>
        <source>Backed up</source>
        <translation>Gesichert</translation>
    </message>
    <message>
        <source>No recording</source>
        <translation>Keine Aufnahme</translation>
    </message>
    <message>
        <source>On the recorder</source>
        <translation>Auf dem Rekorder</translation>
    </message>
    <message>
        <source>Alarm</source>
        <translation>Alarm</translation>
    </message>
    <message>
        <source>Now, %1</source>
        <translation>Jetzt, %1</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupSearch</name>
    <message>
        <source>Failed to search video recordings(%1)</source>
        <translation>Die Videoaufnahmen konnten nicht gesucht werden (%1)</translation>
    </message>
    <message>
        <source>Non-video recordings</source>
        <translation>Keine Videoaufnahmen</translation>
    </message>
    <message>
        <source>Query video recording timeout</source>
        <translation>Zeitüberschreitung bei der Suche nach Videoaufnahmen</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupTargetDay</name>
    <message>
        <source>Days with backup tasks</source>
        <translation>Tage mit Sicherungsaufträgen</translation>
    </message>
    <message>
        <source>The backup tasks are those of %1, please select another day</source>
        <translation>Die Sicherungsaufträge sind die vom %1, bitte wählen Sie einen anderen Tag</translation>
    </message>
    <message>
        <source>A maximum of %1 tasks can be added in one day, %2 have been added,%3 to be added, please select another day</source>
        <translation>An einem Tag sind höchstens %1 Aufträge möglich; %2 sind vorhanden, %3 sollen hinzukommen. Bitte wählen Sie einen anderen Tag</translation>
    </message>
    <message>
        <source>Apply backup tasks to %1 success</source>
        <translation>Die Sicherungsaufträge wurden auf %1 angewendet</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupTaskTimeAxisWt</name>
    <message>
        <source>start backup</source>
        <translation>Sicherung starten</translation>
    </message>
    <message>
        <source>export backup files</source>
        <translation>Sicherungsdateien exportieren</translation>
    </message>
    <message>
        <source>delete backup task</source>
        <translation>Sicherungsauftrag löschen</translation>
    </message>
    <message>
        <source>apply to other day</source>
        <translation>Auf anderen Tag anwenden</translation>
    </message>
    <message>
        <source>%1(Not Exist)</source>
        <translation>%1 (nicht vorhanden)</translation>
    </message>
    <message>
        <source>Do you want to delete the video recording backup task?</source>
        <translation>Sicherungsauftrag für die Videoaufnahmen löschen?</translation>
    </message>
    <message>
        <source>not searched yet</source>
        <translation>noch nicht gesucht</translation>
    </message>
    <message>
        <source>nothing recorded</source>
        <translation>nichts aufgezeichnet</translation>
    </message>
    <message>
        <source>%1 safe</source>
        <translation>%1 gesichert</translation>
    </message>
    <message>
        <source>A start searches what the recorder holds</source>
        <translation>Ein Start sucht, was der Rekorder hat</translation>
    </message>
    <message>
        <source>The recorder held nothing of these times when it was last searched</source>
        <translation>Bei der letzten Suche hatte der Rekorder nichts aus diesen Zeiten</translation>
    </message>
    <message>
        <source>%1 that the recorder holds is in files here</source>
        <translation>%1 dessen, was der Rekorder hat, liegt hier in Dateien</translation>
    </message>
    <message>
        <source>Exporting, %1%</source>
        <translation>Export läuft, %1%</translation>
    </message>
    <message>
        <source>Searching recordings</source>
        <translation>Aufnahmen werden gesucht</translation>
    </message>
    <message>
        <source>Running, %1%</source>
        <translation>Läuft, %1%</translation>
    </message>
    <message>
        <source>Finished</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Waiting</source>
        <translation>Wartet</translation>
    </message>
    <message>
        <source>Not started</source>
        <translation>Nicht gestartet</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>%1, %2, %3</source>
        <translation>%1, %2, %3</translation>
    </message>
    <message>
        <source>channel no longer exists</source>
        <translation>Kanal existiert nicht mehr</translation>
    </message>
    <message>
        <source>stop backup</source>
        <translation>Sicherung anhalten</translation>
    </message>
    <message>
        <source>cancel the export</source>
        <translation>Export abbrechen</translation>
    </message>
    <message>
        <source>Retry at %1</source>
        <translation>Neuer Versuch um %1</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupTimeSegmentWt</name>
    <message>
        <source>Time Segment 1</source>
        <translation>Zeitabschnitt 1</translation>
    </message>
    <message>
        <source>delete time segment</source>
        <translation>Zeitabschnitt löschen</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Bis</translation>
    </message>
    <message>
        <source>Time Segment %1</source>
        <translation>Zeitabschnitt %1</translation>
    </message>
    <message>
        <source>%1, start</source>
        <translation>%1, Beginn</translation>
    </message>
    <message>
        <source>%1, end</source>
        <translation>%1, Ende</translation>
    </message>
    <message>
        <source>This segment starts after its end: it holds no recording. Let it end at 23:59 and add another one from 00:00.</source>
        <translation>Dieser Abschnitt beginnt nach seinem Ende und enthält keine Aufnahme. Lassen Sie ihn um 23:59 enden, und fügen Sie einen weiteren ab 00:00 hinzu.</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupTimeSegmentsSettingWt</name>
    <message>
        <source>add time segment</source>
        <translation>Zeitabschnitt hinzufügen</translation>
    </message>
    <message>
        <source>%1 of %2 segments. Overlapping ones are merged.</source>
        <translation>%1 von %2 Abschnitten. Überlappende werden zusammengefasst.</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupWorker</name>
    <message>
        <source>Waiting for backup...</source>
        <translation>Warten auf die Sicherung...</translation>
    </message>
    <message>
        <source>Backup is abnormal,the backup will be attempted again later</source>
        <translation>Die Sicherung ist gestört, sie wird später erneut versucht</translation>
    </message>
    <message>
        <source>The folder for backups, %1, is not there or lies on another disk, the backup will be attempted again later</source>
        <translation>Der Ordner für Sicherungen, %1, ist nicht vorhanden oder liegt auf einem anderen Datenträger; die Sicherung wird später erneut versucht</translation>
    </message>
    <message>
        <source>The backup time is later than the current time, no video recordings can be backed up</source>
        <translation>Die Sicherungszeit liegt in der Zukunft, es können keine Videoaufnahmen gesichert werden</translation>
    </message>
    <message>
        <source>The disk free space &lt; 1GB,please switch the disk to continue the backup</source>
        <translation>Weniger als 1 GB auf dem Datenträger frei, bitte wechseln Sie ihn, um die Sicherung fortzusetzen</translation>
    </message>
    <message>
        <source>The backup limit of he device has been reached, the backup will be attempted again later</source>
        <translation>Die Sicherungsgrenze des Geräts ist erreicht, die Sicherung wird später erneut versucht</translation>
    </message>
    <message>
        <source>stop back up, stop time:%1</source>
        <translation>Sicherung angehalten, Zeitpunkt: %1</translation>
    </message>
    <message>
        <source>delete back up task, back up date:%1</source>
        <translation>Sicherungsauftrag gelöscht, Sicherungstag: %1</translation>
    </message>
    <message>
        <source>No video recording</source>
        <translation>Keine Videoaufnahme</translation>
    </message>
    <message>
        <source>Video recording backup success</source>
        <translation>Videoaufnahmen gesichert</translation>
    </message>
    <message>
        <source>%1, time range:%2 %3~%4</source>
        <translation>%1, Zeitraum: %2 %3~%4</translation>
    </message>
    <message>
        <source>start back up, start time:%1</source>
        <translation>Sicherung gestartet, Zeitpunkt: %1</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::ChannelSnapImagesWt</name>
    <message>
        <source>1 snapshot</source>
        <translation>1 Einzelbild</translation>
    </message>
    <message>
        <source>%1 snapshots</source>
        <translation>%1 Einzelbilder</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::DevRecordingsBackupPage</name>
    <message>
        <source>Recordings Backup</source>
        <translation>Sicherung der Aufnahmen</translation>
    </message>
    <message>
        <source>Days with backup tasks</source>
        <translation>Tage mit Sicherungsaufträgen</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Day before</source>
        <translation>Voriger Tag</translation>
    </message>
    <message>
        <source>Next day</source>
        <translation>Nächster Tag</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Starten</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>Exporting backup files, please wait a moment</source>
        <translation>Sicherungsdateien werden exportiert, bitte warten Sie einen Moment</translation>
    </message>
    <message>
        <source>Exporting backup files, please check other backup tasks after the export is finished</source>
        <translation>Sicherungsdateien werden exportiert, bitte sehen Sie sich andere Sicherungsaufträge nach dem Export an</translation>
    </message>
    <message>
        <source>No backup task on %1</source>
        <translation>Kein Sicherungsauftrag am %1</translation>
    </message>
    <message>
        <source>A maximum of %1 tasks can be added in one day</source>
        <translation>An einem Tag sind höchstens %1 Aufträge möglich</translation>
    </message>
    <message>
        <source>Do you want to delete all the backup tasks on %1?</source>
        <translation>Alle Sicherungsaufträge vom %1 löschen?</translation>
    </message>
    <message>
        <source>1 task</source>
        <translation>1 Auftrag</translation>
    </message>
    <message>
        <source>%1 tasks</source>
        <translation>%1 Aufträge</translation>
    </message>
    <message>
        <source>%1, %2 safe</source>
        <translation>%1, %2 gesichert</translation>
    </message>
    <message>
        <source>No backup is planned for %1.</source>
        <translation>Für %1 ist keine Sicherung geplant.</translation>
    </message>
    <message>
        <source>Press Add to pick channels and time segments.</source>
        <translation>Mit Hinzufügen wählen Sie Kanäle und Zeitabschnitte.</translation>
    </message>
    <message>
        <source>Cancel the export</source>
        <translation>Export abbrechen</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::DownloadAccess</name>
    <message>
        <source>No download recording permission, please contact the administrator</source>
        <translation>Kein Recht zum Herunterladen von Aufnahmen, bitte wenden Sie sich an den Administrator</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::DownloadStateWt</name>
    <message>
        <source>pause</source>
        <translation>Pausiert</translation>
    </message>
    <message>
        <source>waiting download...</source>
        <translation>Wartet auf Download...</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::DownloadingOperWt</name>
    <message>
        <source>start downloading</source>
        <translation>Download starten</translation>
    </message>
    <message>
        <source>clean the task</source>
        <translation>Auftrag entfernen</translation>
    </message>
    <message>
        <source>open folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>stop downloading</source>
        <translation>Download anhalten</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::DownloadingRows</name>
    <message>
        <source>waiting download...</source>
        <translation>Wartet auf Download...</translation>
    </message>
    <message>
        <source>pause</source>
        <translation>Pausiert</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::DownloadingTable</name>
    <message>
        <source>Downloading</source>
        <translation>Laufend</translation>
    </message>
    <message>
        <source>Nothing is being downloaded.</source>
        <translation>Es wird gerade nichts heruntergeladen.</translation>
    </message>
    <message>
        <source>Mark a span in Playback and press Download.</source>
        <translation>Markieren Sie in der Wiedergabe einen Zeitraum, und klicken Sie auf Herunterladen.</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>check</source>
        <translation>markieren</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>start or stop</source>
        <translation>starten oder anhalten</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>clean the task</source>
        <translation>Auftrag entfernen</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Channel Name</source>
        <translation>Kanalname</translation>
    </message>
    <message>
        <source>Datetime Range</source>
        <translation>Zeitraum</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Speicherort</translation>
    </message>
    <message>
        <source>Download Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Oper</source>
        <translation>Aktion</translation>
    </message>
    <message>
        <source>Batch Start</source>
        <translation>Markierte starten</translation>
    </message>
    <message>
        <source>Batch Stop</source>
        <translation>Markierte anhalten</translation>
    </message>
    <message>
        <source>Batch Cancel</source>
        <translation>Markierte abbrechen</translation>
    </message>
    <message>
        <source>Download path does not exist, please configure available download path in system configuration</source>
        <translation>Der Download-Ordner existiert nicht, bitte legen Sie in den Einstellungen einen vorhandenen fest</translation>
    </message>
    <message>
        <source>downloading break off, disk free space &lt; 1GB, disk name:%1</source>
        <translation>Download abgebrochen, weniger als 1 GB auf dem Datenträger frei. Datenträger: %1</translation>
    </message>
    <message>
        <source>please check tasks to start</source>
        <translation>Bitte markieren Sie Aufträge zum Starten</translation>
    </message>
    <message>
        <source>please check tasks to stop</source>
        <translation>Bitte markieren Sie Aufträge zum Anhalten</translation>
    </message>
    <message>
        <source>please check tasks to cancel</source>
        <translation>Bitte markieren Sie Aufträge zum Abbrechen</translation>
    </message>
    <message>
        <source>Do you want to cancel checked tasks?</source>
        <translation>Markierte Aufträge abbrechen?</translation>
    </message>
    <message>
        <source>file does not exist</source>
        <translation>Datei existiert nicht</translation>
    </message>
    <message>
        <source>%1 running, %2 waiting, %3 paused.</source>
        <translation>%1 laufen, %2 warten, %3 pausiert.</translation>
    </message>
    <message>
        <source>About %1 left.</source>
        <translation>Noch etwa %1.</translation>
    </message>
    <message>
        <source>Less than a minute left.</source>
        <translation>Noch weniger als eine Minute.</translation>
    </message>
    <message>
        <source>about %1 left</source>
        <translation>noch etwa %1</translation>
    </message>
    <message>
        <source>Being started</source>
        <translation>Wird gestartet</translation>
    </message>
    <message>
        <source>Waits for one of five places</source>
        <translation>Wartet auf einen von fünf Plätzen</translation>
    </message>
    <message>
        <source>The channel no longer exists in this client</source>
        <translation>Der Kanal existiert in diesem Client nicht mehr</translation>
    </message>
    <message>
        <source>start downloading</source>
        <translation>Download starten</translation>
    </message>
    <message>
        <source>stop downloading</source>
        <translation>Download anhalten</translation>
    </message>
    <message>
        <source>open folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Details</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::EmptyPage</name>
    <message>
        <source>This page comes with a later version.</source>
        <translation>Diese Seite kommt mit einer späteren Version.</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::EndedTasksTable</name>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Channel Name</source>
        <translation>Kanalname</translation>
    </message>
    <message>
        <source>Datetime Range</source>
        <translation>Zeitraum</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Speicherort</translation>
    </message>
    <message>
        <source>Oper</source>
        <translation>Aktion</translation>
    </message>
    <message>
        <source>please check tasks to clean</source>
        <translation>Bitte markieren Sie Aufträge zum Entfernen</translation>
    </message>
    <message>
        <source>Do you want to clean checked tasks?</source>
        <translation>Markierte Aufträge entfernen?</translation>
    </message>
    <message>
        <source>Batch Delete</source>
        <translation>Markierte entfernen</translation>
    </message>
    <message>
        <source>clean the task</source>
        <translation>Auftrag entfernen</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Details</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::ExportBackupFiles</name>
    <message>
        <source>%1 is not any more what it was when it was backed up.</source>
        <translation>%1 ist nicht mehr, was es beim Sichern war.</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::FailedOperWt</name>
    <message>
        <source>redownload</source>
        <translation>Erneut herunterladen</translation>
    </message>
    <message>
        <source>clean the task</source>
        <translation>Auftrag entfernen</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::FailedTable</name>
    <message>
        <source>Download Failure</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>No download has failed.</source>
        <translation>Kein Download ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>What fails is kept here until it is fetched or cleaned.</source>
        <translation>Was fehlschlägt, bleibt hier, bis es geholt oder entfernt wird.</translation>
    </message>
    <message>
        <source>What may pass is tried again after about a minute.</source>
        <translation>Was vorübergehen kann, wird nach etwa einer Minute erneut versucht.</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>check</source>
        <translation>markieren</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>redownload</source>
        <translation>Erneut herunterladen</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>clean the task</source>
        <translation>Auftrag entfernen</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Batch Redownload</source>
        <translation>Markierte erneut laden</translation>
    </message>
    <message>
        <source>Batch Delete</source>
        <translation>Markierte entfernen</translation>
    </message>
    <message>
        <source>please check tasks to redownload</source>
        <translation>Bitte markieren Sie Aufträge zum erneuten Herunterladen</translation>
    </message>
    <message numerus="yes">
        <source>%n task(s), newest first</source>
        <translation>
            <numerusform>%n Auftrag, neueste zuerst</numerusform>
            <numerusform>%n Aufträge, neueste zuerst</numerusform>
        </translation>
    </message>
    <message>
        <source>The channel no longer exists in this client, so it can&apos;t be tried again.</source>
        <translation>Der Kanal existiert in diesem Client nicht mehr, daher ist kein neuer Versuch möglich.</translation>
    </message>
    <message>
        <source>Retry in %1.</source>
        <translation>Neuer Versuch in %1.</translation>
    </message>
    <message>
        <source>Check user and password of the recorder, then press &quot;redownload&quot;.</source>
        <translation>Prüfen Sie Benutzer und Passwort des Rekorders, und klicken Sie dann auf &quot;Erneut herunterladen&quot;.</translation>
    </message>
    <message>
        <source>It is not tried again by itself: press &quot;redownload&quot;.</source>
        <translation>Es wird nicht automatisch erneut versucht: Klicken Sie auf &quot;Erneut herunterladen&quot;.</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::FileVerifier</name>
    <message>
        <source>It had %L1 bytes when it was finished and has %L2 now</source>
        <translation>Sie hatte beim Abschließen %L1 Byte und hat jetzt %L2</translation>
    </message>
    <message>
        <source>Its length is the same, its content is not</source>
        <translation>Die Länge ist gleich, der Inhalt nicht</translation>
    </message>
    <message>
        <source>Its length is the same, its content is not: the first change is between byte %L1 and byte %L2</source>
        <translation>Die Länge ist gleich, der Inhalt nicht: Die erste Abweichung liegt zwischen Byte %L1 und Byte %L2</translation>
    </message>
    <message>
        <source>%1 is what was downloaded: its SHA-256 is the one kept when it was finished.</source>
        <translation>%1 ist, was heruntergeladen wurde: Der SHA-256 ist der beim Abschließen gespeicherte.</translation>
    </message>
    <message>
        <source>%1 is not what was downloaded. %2. Download it again if the recorder still has it.</source>
        <translation>%1 ist nicht, was heruntergeladen wurde. %2. Laden Sie die Datei erneut herunter, wenn der Rekorder sie noch hat.</translation>
    </message>
    <message>
        <source>%1 is not there any more, so nothing can be compared.</source>
        <translation>%1 ist nicht mehr vorhanden, daher kann nichts verglichen werden.</translation>
    </message>
    <message>
        <source>No SHA-256 of %1 was kept when it was finished. Its present one is kept from now on.</source>
        <translation>Für %1 wurde beim Abschließen kein SHA-256 gespeichert. Der jetzige wird ab sofort aufbewahrt.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be verified: %2</source>
        <translation>%1 kann nicht geprüft werden: %2</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::FilesCenterForm</name>
    <message>
        <source>FilesCenterForm</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Download Mgr</source>
        <translation>Downloads</translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation>Laufend</translation>
    </message>
    <message>
        <source>Download Success</source>
        <translation>Abgeschlossen</translation>
    </message>
    <message>
        <source>Download Failure</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>Local Recording</source>
        <translation>Lokale Aufnahmen</translation>
    </message>
    <message>
        <source>Local Snapshot</source>
        <translation>Lokale Einzelbilder</translation>
    </message>
    <message>
        <source>Local Files</source>
        <translation>Lokale Dateien</translation>
    </message>
    <message>
        <source>Recordings Backup</source>
        <translation>Sicherung der Aufnahmen</translation>
    </message>
    <message>
        <source>Downloading(%1)</source>
        <translation>Laufend (%1)</translation>
    </message>
    <message>
        <source>Download Success(%1)</source>
        <translation>Abgeschlossen (%1)</translation>
    </message>
    <message>
        <source>Download Failure(%1)</source>
        <translation>Fehlgeschlagen (%1)</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalFilesMgrPage</name>
    <message>
        <source>Files Directory</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Open Dir</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Filter by name</source>
        <translation>Nach Name filtern</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Save AS</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Local Files</source>
        <translation>Lokale Dateien</translation>
    </message>
    <message>
        <source>There are no recordings or images in this folder.</source>
        <translation>In diesem Ordner sind keine Aufnahmen oder Bilder.</translation>
    </message>
    <message>
        <source>Files ending in mp4, jpg or png are shown. Open another folder.</source>
        <translation>Dateien mit den Endungen mp4, jpg oder png werden angezeigt. Öffnen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>No file matches the filter.</source>
        <translation>Keine Datei entspricht dem Filter.</translation>
    </message>
    <message>
        <source>The filter looks for a part of the file&apos;s name.</source>
        <translation>Der Filter sucht einen Teil des Dateinamens.</translation>
    </message>
    <message>
        <source>Clear the filter</source>
        <translation>Filter zurücksetzen</translation>
    </message>
    <message>
        <source>This folder is no longer there.</source>
        <translation>Diesen Ordner gibt es nicht mehr.</translation>
    </message>
    <message>
        <source>It was removed, or its disk is not connected. Open another folder.</source>
        <translation>Er wurde entfernt, oder sein Datenträger ist nicht angeschlossen. Öffnen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>Failed to delete file</source>
        <translation>Die Datei konnte nicht gelöscht werden</translation>
    </message>
    <message>
        <source>Saving As:%1%</source>
        <translation>Wird gespeichert: %1%</translation>
    </message>
    <message>
        <source>Save file as successful</source>
        <translation>Die Datei wurde gespeichert</translation>
    </message>
    <message>
        <source>Save file as failure</source>
        <translation>Die Datei konnte nicht gespeichert werden</translation>
    </message>
    <message>
        <source>Open Directory</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Please select a file to delete</source>
        <translation>Bitte wählen Sie eine Datei zum Löschen aus</translation>
    </message>
    <message>
        <source>Do you want to delete file:%1?</source>
        <translation>Datei löschen: %1?</translation>
    </message>
    <message>
        <source>Please select a file to save as</source>
        <translation>Bitte wählen Sie eine Datei zum Speichern aus</translation>
    </message>
    <message>
        <source>Video(*.mp4)</source>
        <translation>Video (*.mp4)</translation>
    </message>
    <message>
        <source>Images(*.jpg *.png)</source>
        <translation>Bilder (*.jpg *.png)</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Im Ordner anzeigen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>%1: %2, %3</source>
        <translation>%1: %2, %3</translation>
    </message>
    <message>
        <source>1 file</source>
        <translation>1 Datei</translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation>%1 Dateien</translation>
    </message>
    <message>
        <source>1 video</source>
        <translation>1 Video</translation>
    </message>
    <message>
        <source>%1 videos</source>
        <translation>%1 Videos</translation>
    </message>
    <message>
        <source>1 image</source>
        <translation>1 Bild</translation>
    </message>
    <message>
        <source>%1 images</source>
        <translation>%1 Bilder</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalFilesSaveAs</name>
    <message>
        <source>Select Save As Path</source>
        <translation>Zielordner auswählen</translation>
    </message>
    <message>
        <source>Saving As:%1/%2(%3%)</source>
        <translation>Wird gespeichert: %1/%2 (%3%)</translation>
    </message>
    <message>
        <source>Save as file failed:%1(%2)</source>
        <translation>Datei konnte nicht gespeichert werden: %1 (%2)</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalRecordingOperWt</name>
    <message>
        <source>open the file</source>
        <translation>Datei öffnen</translation>
    </message>
    <message>
        <source>open folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>delete file</source>
        <translation>Datei löschen</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalRecordingRows</name>
    <message>
        <source>Damaged</source>
        <translation>Beschädigt</translation>
    </message>
    <message>
        <source>The file does not tell its time. This one comes from when it was last written.</source>
        <translation>Die Datei nennt ihre Zeit nicht. Diese stammt vom letzten Schreiben der Datei.</translation>
    </message>
    <message>
        <source>Missing</source>
        <translation>Fehlt</translation>
    </message>
    <message>
        <source>file does not exist</source>
        <translation>Datei existiert nicht</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalRecordingsMgrPage</name>
    <message>
        <source>Time Space Sel</source>
        <translation>Zeitraum</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Filter by channel name</source>
        <translation>Nach Kanalname filtern</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Save AS</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Channel Name</source>
        <translation>Kanalname</translation>
    </message>
    <message>
        <source>Start Time</source>
        <translation>Beginn</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Oper</source>
        <translation>Aktion</translation>
    </message>
    <message>
        <source>Local Recording</source>
        <translation>Lokale Aufnahmen</translation>
    </message>
    <message>
        <source>There are no recordings in this span.</source>
        <translation>In diesem Zeitraum gibt es keine Aufnahmen.</translation>
    </message>
    <message>
        <source>What live view records appears here. Choose another span, or look for files that came into the folder another way.</source>
        <translation>Was die Live-Ansicht aufnimmt, erscheint hier. Wählen Sie einen anderen Zeitraum, oder suchen Sie nach Dateien, die auf anderem Weg in den Ordner kamen.</translation>
    </message>
    <message>
        <source>Look for new files</source>
        <translation>Nach neuen Dateien suchen</translation>
    </message>
    <message>
        <source>No recording matches the filter.</source>
        <translation>Keine Aufnahme entspricht dem Filter.</translation>
    </message>
    <message>
        <source>The filter looks for a part of the channel&apos;s name.</source>
        <translation>Der Filter sucht einen Teil des Kanalnamens.</translation>
    </message>
    <message>
        <source>Clear the filter</source>
        <translation>Filter zurücksetzen</translation>
    </message>
    <message>
        <source>searching local recordings...</source>
        <translation>Lokale Aufnahmen werden gesucht...</translation>
    </message>
    <message>
        <source>Looking for new files...</source>
        <translation>Neue Dateien werden gesucht...</translation>
    </message>
    <message>
        <source>The first %L1 of this span; choose a shorter one to see all</source>
        <translation>Die ersten %L1 dieses Zeitraums; wählen Sie einen kürzeren, um alle zu sehen</translation>
    </message>
    <message>
        <source>Video kept on this computer while live view recorded</source>
        <translation>Video, das bei der Live-Ansicht auf diesem Computer aufgenommen wurde</translation>
    </message>
    <message>
        <source>search none local recordings</source>
        <translation>Keine lokalen Aufnahmen gefunden</translation>
    </message>
    <message>
        <source>file does not exist</source>
        <translation>Datei existiert nicht</translation>
    </message>
    <message>
        <source>open the file</source>
        <translation>Datei öffnen</translation>
    </message>
    <message>
        <source>open folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>delete file</source>
        <translation>Datei löschen</translation>
    </message>
    <message>
        <source>Copy path</source>
        <translation>Pfad kopieren</translation>
    </message>
    <message>
        <source>Delete checked</source>
        <translation>Markierte löschen</translation>
    </message>
    <message>
        <source>Save checked as</source>
        <translation>Markierte speichern unter</translation>
    </message>
    <message>
        <source>Please select local recordings to save as</source>
        <translation>Bitte wählen Sie lokale Aufnahmen zum Speichern aus</translation>
    </message>
    <message>
        <source>Do you want to delete the recording:%1(%2)?</source>
        <translation>Aufnahme löschen: %1 (%2)?</translation>
    </message>
    <message>
        <source>Please select local recordings to delete</source>
        <translation>Bitte wählen Sie lokale Aufnahmen zum Löschen aus</translation>
    </message>
    <message>
        <source>Do you want to delete select local recordings?</source>
        <translation>Ausgewählte lokale Aufnahmen löschen?</translation>
    </message>
    <message>
        <source>delete local recordings...</source>
        <translation>Lokale Aufnahmen werden gelöscht...</translation>
    </message>
    <message>
        <source>Failed to delete local recordings</source>
        <translation>Lokale Aufnahmen konnten nicht gelöscht werden</translation>
    </message>
    <message>
        <source>Record begin time:%1,file size:%2</source>
        <translation>Aufnahmebeginn: %1, Dateigröße: %2</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalSnapImageCard</name>
    <message>
        <source>enlarge</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>save as</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Do you want to delete the snap image?</source>
        <translation>Einzelbild löschen?</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Images(*.bmp)</source>
        <translation>Bilder (*.bmp)</translation>
    </message>
    <message>
        <source>Images (*.jpg)</source>
        <translation>Bilder (*.jpg)</translation>
    </message>
    <message>
        <source>This image can&apos;t be read</source>
        <translation>Dieses Bild kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>%1 x %2</source>
        <translation>%1 x %2</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalSnapImageCardsBox</name>
    <message>
        <source>enlarge</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>save as</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>open folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Copy path</source>
        <translation>Pfad kopieren</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalSnapImagesMgrPage</name>
    <message>
        <source>Time Space Sel</source>
        <translation>Zeitraum</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Filter by channel name</source>
        <translation>Nach Kanalname filtern</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Save AS</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Capture time:%1</source>
        <translation>Aufnahmezeit: %1</translation>
    </message>
    <message>
        <source>Failed to delete snap images</source>
        <translation>Einzelbilder konnten nicht gelöscht werden</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und %n weiteres</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>Local Snapshot</source>
        <translation>Lokale Einzelbilder</translation>
    </message>
    <message>
        <source>There are no snapshots in this span.</source>
        <translation>In diesem Zeitraum gibt es keine Einzelbilder.</translation>
    </message>
    <message>
        <source>What is captured in live view or the player appears here. Choose another span, or search again.</source>
        <translation>Was in der Live-Ansicht oder im Player festgehalten wird, erscheint hier. Wählen Sie einen anderen Zeitraum, oder suchen Sie erneut.</translation>
    </message>
    <message>
        <source>Search again</source>
        <translation>Erneut suchen</translation>
    </message>
    <message>
        <source>No channel matches the filter.</source>
        <translation>Kein Kanal entspricht dem Filter.</translation>
    </message>
    <message>
        <source>The filter looks for a part of the channel&apos;s name.</source>
        <translation>Der Filter sucht einen Teil des Kanalnamens.</translation>
    </message>
    <message>
        <source>Clear the filter</source>
        <translation>Filter zurücksetzen</translation>
    </message>
    <message>
        <source>search none local snap images</source>
        <translation>Keine lokalen Einzelbilder gefunden</translation>
    </message>
    <message>
        <source>please select snap images to delete</source>
        <translation>Bitte wählen Sie Einzelbilder zum Löschen aus</translation>
    </message>
    <message>
        <source>Do you want to delete selected snap images?</source>
        <translation>Ausgewählte Einzelbilder löschen?</translation>
    </message>
    <message>
        <source>Please select snap images to save as</source>
        <translation>Bitte wählen Sie Einzelbilder zum Speichern aus</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>1 snapshot</source>
        <translation>1 Einzelbild</translation>
    </message>
    <message>
        <source>%1 snapshots</source>
        <translation>%1 Einzelbilder</translation>
    </message>
    <message>
        <source>1 channel</source>
        <translation>1 Kanal</translation>
    </message>
    <message>
        <source>%1 channels</source>
        <translation>%1 Kanäle</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::RecordingsBackUpTree</name>
    <message>
        <source>no replay</source>
        <translation>keine Wiedergabe</translation>
    </message>
    <message>
        <source>disabled</source>
        <translation>deaktiviert</translation>
    </message>
    <message>
        <source>live view alone</source>
        <translation>nur Live-Ansicht</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::SuccessOperWt</name>
    <message>
        <source>open the file</source>
        <translation>Datei öffnen</translation>
    </message>
    <message>
        <source>open folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>clean the task</source>
        <translation>Auftrag entfernen</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::SuccessTable</name>
    <message>
        <source>Download Success</source>
        <translation>Abgeschlossen</translation>
    </message>
    <message>
        <source>No download has finished yet.</source>
        <translation>Noch kein Download ist abgeschlossen.</translation>
    </message>
    <message>
        <source>Finished files appear here, the newest at the top. Mark a span in Playback and press Download.</source>
        <translation>Fertige Dateien erscheinen hier, die neueste oben. Markieren Sie in der Wiedergabe einen Zeitraum, und klicken Sie auf Herunterladen.</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>check</source>
        <translation>markieren</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>open the file</source>
        <translation>Datei öffnen</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>clean the task</source>
        <translation>Auftrag entfernen</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Batch Delete</source>
        <translation>Markierte entfernen</translation>
    </message>
    <message>
        <source>Download success,record source:%1, time range:%2, file size:%3</source>
        <translation>Download abgeschlossen, Quelle: %1, Zeitraum: %2, Dateigröße: %3</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s), newest first</source>
        <translation>
            <numerusform>%n Datei, neueste zuerst</numerusform>
            <numerusform>%n Dateien, neueste zuerst</numerusform>
        </translation>
    </message>
    <message>
        <source>file does not exist</source>
        <translation>Datei existiert nicht</translation>
    </message>
    <message>
        <source>download path is invalid</source>
        <translation>Der Download-Ordner ist ungültig</translation>
    </message>
    <message>
        <source>open folder</source>
        <translation>Ordner öffnen</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::TaskDetailsText</name>
    <message>
        <source>%1 to %2 (%3)</source>
        <translation>%1 bis %2 (%3)</translation>
    </message>
    <message>
        <source>; begins %1 later than asked</source>
        <translation>; beginnt %1 später als angefordert</translation>
    </message>
    <message>
        <source>; ends %1 earlier than asked</source>
        <translation>; endet %1 früher als angefordert</translation>
    </message>
    <message>
        <source>Received</source>
        <translation>Empfangen</translation>
    </message>
    <message>
        <source>Gaps</source>
        <translation>Lücken</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>lost in transfer</source>
        <translation>bei der Übertragung verloren</translation>
    </message>
    <message>
        <source>not recorded</source>
        <translation>nicht aufgezeichnet</translation>
    </message>
    <message>
        <source>%1 to %2, %3, %4</source>
        <translation>%1 bis %2, %3, %4</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>Losses</source>
        <translation>Verluste</translation>
    </message>
    <message>
        <source>%L1 frames did not arrive whole</source>
        <translation>%L1 Bilder kamen nicht vollständig an</translation>
    </message>
    <message>
        <source>Media</source>
        <translation>Medien</translation>
    </message>
    <message>
        <source>%1 MB (%L2 bytes)</source>
        <translation>%1 MB (%L2 Byte)</translation>
    </message>
    <message>
        <source>The recorder refused the login. It is not tried again by itself: correct user and password of the recorder, then redownload.</source>
        <translation>Der Rekorder hat die Anmeldung abgelehnt. Es wird nicht automatisch erneut versucht: Berichtigen Sie Benutzer und Passwort des Rekorders, und laden Sie dann erneut herunter.</translation>
    </message>
    <message>
        <source>The recorder could not be reached, or had no connection left. It is tried again by itself; check network and power of the recorder if that goes on.</source>
        <translation>Der Rekorder war nicht erreichbar oder hatte keine Verbindung mehr frei. Es wird automatisch erneut versucht; prüfen Sie Netzwerk und Stromversorgung des Rekorders, wenn das anhält.</translation>
    </message>
    <message>
        <source>The download broke off. What arrived is kept as a file of its own; the rest is fetched again by itself.</source>
        <translation>Der Download ist abgebrochen. Was ankam, wird als eigene Datei aufbewahrt; der Rest wird automatisch erneut geholt.</translation>
    </message>
    <message>
        <source>The recording can&apos;t be read, or the file can&apos;t be written. It is not tried again by itself: check the download folder and its disk, then redownload.</source>
        <translation>Die Aufnahme kann nicht gelesen oder die Datei nicht geschrieben werden. Es wird nicht automatisch erneut versucht: Prüfen Sie den Download-Ordner und seinen Datenträger, und laden Sie dann erneut herunter.</translation>
    </message>
    <message>
        <source>The recorder gave no address for the recording, which it may have overwritten. It is tried again by itself; search the recordings of that day to see what is left.</source>
        <translation>Der Rekorder nannte keine Adresse für die Aufnahme; vielleicht hat er sie überschrieben. Es wird automatisch erneut versucht; suchen Sie die Aufnahmen dieses Tages, um zu sehen, was noch da ist.</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Grund</translation>
    </message>
    <message>
        <source>What next</source>
        <translation>Wie weiter</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Asked</source>
        <translation>Angefordert</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>Datenrate</translation>
    </message>
    <message>
        <source>%1 MB/s, %2 in all</source>
        <translation>%1 MB/s, insgesamt %2</translation>
    </message>
    <message>
        <source>less than 1 s</source>
        <translation>weniger als 1 s</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>SHA-256</source>
        <translation>SHA-256</translation>
    </message>
    <message>
        <source>not summed yet</source>
        <translation>noch nicht berechnet</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::TaskDetailsWt</name>
    <message>
        <source>Verify</source>
        <translation>Prüfen</translation>
    </message>
    <message>
        <source>Copy checksum</source>
        <translation>Prüfsumme kopieren</translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>Close the details</source>
        <translation>Details schließen</translation>
    </message>
    <message>
        <source>Reading the file.</source>
        <translation>Die Datei wird gelesen.</translation>
    </message>
    <message>
        <source>Copied as a line that &quot;sha256sum -c&quot; reads.</source>
        <translation>Als Zeile kopiert, die &quot;sha256sum -c&quot; liest.</translation>
    </message>
    <message>
        <source>The file is not there any more: it was deleted, moved or renamed.</source>
        <translation>Die Datei ist nicht mehr vorhanden: Sie wurde gelöscht, verschoben oder umbenannt.</translation>
    </message>
    <message>
        <source>There is no file yet.</source>
        <translation>Es gibt noch keine Datei.</translation>
    </message>
    <message>
        <source>Reading the file: %1%</source>
        <translation>Die Datei wird gelesen: %1%</translation>
    </message>
    <message>
        <source>Only a finished download can be verified</source>
        <translation>Nur ein fertiger Download kann geprüft werden</translation>
    </message>
    <message>
        <source>The file is being read</source>
        <translation>Die Datei wird gerade gelesen</translation>
    </message>
    <message>
        <source>Compare the file with the checksum kept when it was finished</source>
        <translation>Datei mit der beim Abschließen gespeicherten Prüfsumme vergleichen</translation>
    </message>
    <message>
        <source>Copy the checksum as a line that &quot;sha256sum -c&quot; reads</source>
        <translation>Prüfsumme als Zeile kopieren, die &quot;sha256sum -c&quot; liest</translation>
    </message>
    <message>
        <source>No checksum is kept yet</source>
        <translation>Noch keine Prüfsumme gespeichert</translation>
    </message>
    <message>
        <source>Open the folder with the file selected</source>
        <translation>Ordner öffnen und Datei auswählen</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::TaskPageFrame</name>
    <message>
        <source>Open Playback</source>
        <translation>Wiedergabe öffnen</translation>
    </message>
    <message>
        <source>%1 of %2 checked</source>
        <translation>%1 von %2 markiert</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::TaskTexts</name>
    <message>
        <source>%1(No longer exists)</source>
        <translation>%1 (existiert nicht mehr)</translation>
    </message>
    <message>
        <source>Device does not exist</source>
        <translation>Gerät existiert nicht</translation>
    </message>
    <message>
        <source>Login Dev Failed</source>
        <translation>Anmeldung fehlgeschlagen</translation>
    </message>
    <message>
        <source>Connect Failed</source>
        <translation>Verbindung fehlgeschlagen</translation>
    </message>
    <message>
        <source>Download Abnormal</source>
        <translation>Download gestört</translation>
    </message>
    <message>
        <source>Invalid File</source>
        <translation>Ungültige Datei</translation>
    </message>
    <message>
        <source>Get Url Failed</source>
        <translation>Keine Adresse erhalten</translation>
    </message>
    <message>
        <source>The recorder refused the login.</source>
        <translation>Der Rekorder hat die Anmeldung abgelehnt.</translation>
    </message>
    <message>
        <source>The recorder could not be reached.</source>
        <translation>Der Rekorder war nicht erreichbar.</translation>
    </message>
    <message>
        <source>The download broke off. What arrived is kept.</source>
        <translation>Der Download ist abgebrochen. Was ankam, bleibt erhalten.</translation>
    </message>
    <message>
        <source>The file was gone when the download ended.</source>
        <translation>Die Datei war beim Ende des Downloads verschwunden.</translation>
    </message>
    <message>
        <source>The recorder gave no address to replay the recording from.</source>
        <translation>Der Rekorder nannte keine Adresse zur Wiedergabe der Aufnahme.</translation>
    </message>
    <message>
        <source>less than a minute</source>
        <translation>weniger als eine Minute</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1 h %2 min</translation>
    </message>
    <message>
        <source>%1 MB/s</source>
        <translation>%1 MB/s</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::TasksTableCommonOper</name>
    <message>
        <source>Do you want to delete download task:%1(%2)?</source>
        <translation>Download-Auftrag löschen: %1 (%2)?</translation>
    </message>
</context>
<context>
    <name>vemo_worker</name>
    <message>
        <source>There is no user %1.</source>
        <translation>Es gibt keinen Benutzer %1.</translation>
    </message>
    <message>
        <source>The password can&apos;t be worked on: the system has not enough free memory.</source>
        <translation>Das Passwort kann nicht verarbeitet werden: Das System hat nicht genug freien Arbeitsspeicher.</translation>
    </message>
</context>
<context>
    <name>vemo_worker::ClientSecretKey</name>
    <message>
        <source>The system gives no random numbers.</source>
        <translation>Das System liefert keine Zufallszahlen.</translation>
    </message>
    <message>
        <source>The key file %1 can&apos;t be written.</source>
        <translation>Die Schlüsseldatei %1 kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>The key file %1 can&apos;t be read: %2.</source>
        <translation>Die Schlüsseldatei %1 kann nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>The stored passwords are locked; set VEMO_SECRETS_PASSWORD.</source>
        <translation>Die gespeicherten Passwörter sind gesperrt; setzen Sie VEMO_SECRETS_PASSWORD.</translation>
    </message>
    <message>
        <source>VEMO_SECRETS_PASSWORD is not the password of the stored passwords.</source>
        <translation>VEMO_SECRETS_PASSWORD ist nicht das Passwort der gespeicherten Passwörter.</translation>
    </message>
    <message>
        <source>The key file %1 is damaged.</source>
        <translation>Die Schlüsseldatei %1 ist beschädigt.</translation>
    </message>
</context>
<context>
    <name>vemo_worker::DictDef</name>
    <message>
        <source>Alert</source>
        <translation>Achtung</translation>
    </message>
    <message>
        <source>Prompt</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
</context>
<context>
    <name>vemo_worker::FolderCheck</name>
    <message>
        <source>The disk or network place does not answer. Choose another folder or connect it.</source>
        <translation>Der Datenträger oder Netzwerkort antwortet nicht. Wählen Sie einen anderen Ordner, oder schließen Sie ihn an.</translation>
    </message>
    <message>
        <source>Give the whole path of a folder.</source>
        <translation>Geben Sie den vollständigen Pfad eines Ordners an.</translation>
    </message>
    <message>
        <source>This is a file. Choose a folder.</source>
        <translation>Dies ist eine Datei. Wählen Sie einen Ordner.</translation>
    </message>
    <message>
        <source>The disk is read-only. Choose another folder.</source>
        <translation>Der Datenträger ist schreibgeschützt. Wählen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>Files can&apos;t be made in this folder. Choose another one or have its access rights changed.</source>
        <translation>In diesem Ordner können keine Dateien angelegt werden. Wählen Sie einen anderen, oder lassen Sie seine Zugriffsrechte ändern.</translation>
    </message>
    <message>
        <source>Less than 1 GB is free on this disk. Make room or choose another folder.</source>
        <translation>Auf diesem Datenträger ist weniger als 1 GB frei. Schaffen Sie Platz, oder wählen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>Writing a file in this folder failed: %1</source>
        <translation>Das Schreiben einer Datei in diesem Ordner ist fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>Less than 10 GB is free on this disk.</source>
        <translation>Auf diesem Datenträger sind weniger als 10 GB frei.</translation>
    </message>
    <message>
        <source>Writing here is slow: %1 MB/s. Downloads may have to wait for this disk.</source>
        <translation>Das Schreiben ist hier langsam: %1 MB/s. Downloads müssen womöglich auf diesen Datenträger warten.</translation>
    </message>
    <message>
        <source>The network place can&apos;t be reached. Choose another folder or connect it.</source>
        <translation>Der Netzwerkort ist nicht erreichbar. Wählen Sie einen anderen Ordner, oder stellen Sie die Verbindung her.</translation>
    </message>
    <message>
        <source>Drive %1 is not connected. Choose another folder or connect the drive.</source>
        <translation>Laufwerk %1 ist nicht angeschlossen. Wählen Sie einen anderen Ordner, oder schließen Sie das Laufwerk an.</translation>
    </message>
    <message>
        <source>The disk of this folder is not connected. Choose another folder or connect the disk.</source>
        <translation>Der Datenträger dieses Ordners ist nicht angeschlossen. Wählen Sie einen anderen Ordner, oder schließen Sie ihn an.</translation>
    </message>
    <message>
        <source>This folder is not there yet.</source>
        <translation>Dieser Ordner ist noch nicht vorhanden.</translation>
    </message>
    <message>
        <source>%1 is a file. Choose a folder.</source>
        <translation>%1 ist eine Datei. Wählen Sie einen Ordner.</translation>
    </message>
</context>
<context>
    <name>vemo_worker::SealedFile</name>
    <message>
        <source>The file %1 is damaged.</source>
        <translation>Die Datei %1 ist beschädigt.</translation>
    </message>
</context>
<context>
    <name>vemo_worker::UserRules</name>
    <message>
        <source>The user name is missing.</source>
        <translation>Der Benutzername fehlt.</translation>
    </message>
    <message>
        <source>The user name is longer than %1 characters.</source>
        <translation>Der Benutzername ist länger als %1 Zeichen.</translation>
    </message>
    <message>
        <source>The user name has a character that can&apos;t be seen.</source>
        <translation>Der Benutzername enthält ein unsichtbares Zeichen.</translation>
    </message>
    <message>
        <source>The password of an administrator has %1 characters or more.</source>
        <translation>Das Passwort eines Administrators hat mindestens %1 Zeichen.</translation>
    </message>
    <message>
        <source>The password has %1 characters or more.</source>
        <translation>Das Passwort hat mindestens %1 Zeichen.</translation>
    </message>
    <message>
        <source>The password is longer than %1 characters.</source>
        <translation>Das Passwort ist länger als %1 Zeichen.</translation>
    </message>
    <message>
        <source>The password is the user name; choose another one.</source>
        <translation>Das Passwort ist der Benutzername; wählen Sie ein anderes.</translation>
    </message>
    <message>
        <source>The password is too easy to guess. Mix letters with digits or signs.</source>
        <translation>Das Passwort ist zu leicht zu erraten. Mischen Sie Buchstaben mit Ziffern oder Zeichen.</translation>
    </message>
</context>
<context>
    <name>vemo_worker::UserStore</name>
    <message>
        <source>The file %1 is of another version.</source>
        <translation>Die Datei %1 hat eine andere Version.</translation>
    </message>
    <message>
        <source>The file %1 can&apos;t be written; nothing was changed.</source>
        <translation>Die Datei %1 kann nicht geschrieben werden; es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>There is a user %1 already.</source>
        <translation>Einen Benutzer %1 gibt es bereits.</translation>
    </message>
    <message>
        <source>The first user has to be an administrator.</source>
        <translation>Der erste Benutzer muss Administrator sein.</translation>
    </message>
    <message>
        <source>The accounts can&apos;t be opened.</source>
        <translation>Die Konten lassen sich nicht öffnen.</translation>
    </message>
    <message>
        <source>There are %1 users already, which is the limit.</source>
        <translation>Es gibt bereits %1 Benutzer, mehr sind nicht möglich.</translation>
    </message>
    <message>
        <source>The account is locked after too many wrong passwords. Try again later.</source>
        <translation>Das Konto ist nach zu vielen falschen Passwörtern gesperrt. Versuchen Sie es später erneut.</translation>
    </message>
    <message>
        <source>The current password is wrong.</source>
        <translation>Das aktuelle Passwort ist falsch.</translation>
    </message>
    <message>
        <source>%1 is the only administrator; make another one first.</source>
        <translation>%1 ist der einzige Administrator; bestimmen Sie zuerst einen anderen.</translation>
    </message>
    <message>
        <source>%1 is the only administrator and stays enabled; make another one first.</source>
        <translation>%1 ist der einzige Administrator und bleibt aktiviert; bestimmen Sie zuerst einen anderen.</translation>
    </message>
    <message>
        <source>%1 is the only administrator and can&apos;t be removed.</source>
        <translation>%1 ist der einzige Administrator und kann nicht entfernt werden.</translation>
    </message>
</context>
<context>
    <name>vms_sdk::DeviceSession</name>
    <message>
        <source>The device at %1 cannot be reached: %2.</source>
        <translation>Das Gerät unter %1 ist nicht erreichbar: %2.</translation>
    </message>
    <message>
        <source>The device at %1 cannot be reached: no connection within %2 s.</source>
        <translation>Das Gerät unter %1 ist nicht erreichbar: keine Verbindung innerhalb von %2 s.</translation>
    </message>
    <message>
        <source>Channel %1</source>
        <translation>Kanal %1</translation>
    </message>
    <message>
        <source>The device&apos;s address must begin with http, https, rtsp or rtsps.</source>
        <translation>Die Adresse des Geräts muss mit http, https, rtsp oder rtsps beginnen.</translation>
    </message>
    <message>
        <source>The device has no channel %1.</source>
        <translation>Das Gerät hat keinen Kanal %1.</translation>
    </message>
    <message>
        <source>The device offers no replay of channel %1.</source>
        <translation>Das Gerät bietet keine Wiedergabe von Kanal %1.</translation>
    </message>
    <message>
        <source>The device gives no replay address for the recording.</source>
        <translation>Das Gerät nennt keine Wiedergabeadresse für die Aufnahme.</translation>
    </message>
    <message>
        <source>The device offers no live video of channel %1.</source>
        <translation>Das Gerät bietet kein Live-Video von Kanal %1.</translation>
    </message>
    <message>
        <source>The device was logged out.</source>
        <translation>Das Gerät wurde abgemeldet.</translation>
    </message>
</context>
<context>
    <name>vms_sdk::DiscoveryJob</name>
    <message>
        <source>This computer is connected to no network.</source>
        <translation>Dieser Computer ist mit keinem Netzwerk verbunden.</translation>
    </message>
</context>
<context>
    <name>vms_sdk::LoginFlow</name>
    <message>
        <source>Channel %1</source>
        <translation>Kanal %1</translation>
    </message>
</context>
<context>
    <name>vms_sdk::SdkCore</name>
    <message>
        <source>The end of the time span lies before its begin.</source>
        <translation>Das Ende des Zeitraums liegt vor seinem Beginn.</translation>
    </message>
</context>
<context>
    <name>vms_sdk::SearchJob</name>
    <message>
        <source>The device has no channel %1.</source>
        <translation>Das Gerät hat keinen Kanal %1.</translation>
    </message>
    <message>
        <source>The device offers no search of recordings.</source>
        <translation>Das Gerät bietet keine Suche nach Aufnahmen.</translation>
    </message>
    <message>
        <source>The device was logged out.</source>
        <translation>Das Gerät wurde abgemeldet.</translation>
    </message>
    <message>
        <source>The device does not get on with its search.</source>
        <translation>Das Gerät kommt mit seiner Suche nicht voran.</translation>
    </message>
    <message>
        <source>The device&apos;s answer cannot be read.</source>
        <translation>Die Antwort des Geräts ist nicht lesbar.</translation>
    </message>
    <message>
        <source>The device tells of more than %1 events in this time; search a shorter one.</source>
        <translation>Das Gerät nennt mehr als %1 Ereignisse in dieser Zeit; durchsuchen Sie eine kürzere.</translation>
    </message>
    <message>
        <source>The device tells of more than %1 recordings in this time; search a shorter one.</source>
        <translation>Das Gerät nennt mehr als %1 Aufnahmen in dieser Zeit; durchsuchen Sie eine kürzere.</translation>
    </message>
    <message>
        <source>The search was cancelled.</source>
        <translation>Die Suche wurde abgebrochen.</translation>
    </message>
</context>
<context>
    <name>vms_sdk::SearchRequests</name>
    <message>
        <source>The search was not answered within %1 s.</source>
        <translation>Die Suche wurde nicht innerhalb von %1 s beantwortet.</translation>
    </message>
</context>
<context>
    <name>vms_sdk::SoapWorker</name>
    <message>
        <source>The device is not known.</source>
        <translation>Das Gerät ist nicht bekannt.</translation>
    </message>
</context>
<context>
    <name>vms_sdk::StreamRegistry</name>
    <message>
        <source>The recording&apos;s name is not one that a search gave.</source>
        <translation>Der Name der Aufnahme stammt nicht aus einer Suche.</translation>
    </message>
    <message>
        <source>The recording ends before the place to play from.</source>
        <translation>Die Aufnahme endet vor der Stelle, ab der abgespielt werden soll.</translation>
    </message>
    <message>
        <source>The time to play from is not a time.</source>
        <translation>Die Zeit, ab der abgespielt werden soll, ist keine Zeit.</translation>
    </message>
    <message>
        <source>The end of the time span lies before its begin.</source>
        <translation>Das Ende des Zeitraums liegt vor seinem Beginn.</translation>
    </message>
    <message>
        <source>The device was logged out.</source>
        <translation>Das Gerät wurde abgemeldet.</translation>
    </message>
</context>
<context>
    <name>vms_sdk::onvif::HttpAnswerReader</name>
    <message>
        <source>The device closed the connection in the middle of its answer.</source>
        <translation>Das Gerät hat die Verbindung mitten in seiner Antwort geschlossen.</translation>
    </message>
    <message>
        <source>The device&apos;s answer has a line longer than %1 bytes.</source>
        <translation>Die Antwort des Geräts hat eine Zeile von mehr als %1 Byte.</translation>
    </message>
    <message>
        <source>The device&apos;s answer cannot be read.</source>
        <translation>Die Antwort des Geräts ist nicht lesbar.</translation>
    </message>
    <message>
        <source>The device&apos;s answer has more than %1 headers.</source>
        <translation>Die Antwort des Geräts hat mehr als %1 Kopfzeilen.</translation>
    </message>
    <message>
        <source>The device does not answer in HTTP.</source>
        <translation>Das Gerät antwortet nicht in HTTP.</translation>
    </message>
    <message>
        <source>The device&apos;s answer is larger than %1 bytes.</source>
        <translation>Die Antwort des Geräts ist größer als %1 Byte.</translation>
    </message>
</context>
<context>
    <name>vms_sdk::onvif::HttpConnection</name>
    <message>
        <source>The device at %1 is not trusted: %2.</source>
        <translation>Dem Gerät unter %1 wird nicht vertraut: %2.</translation>
    </message>
    <message>
        <source>The connection to %1 broke off.</source>
        <translation>Die Verbindung zu %1 ist abgebrochen.</translation>
    </message>
    <message>
        <source>No secure connection to %1: %2.</source>
        <translation>Keine sichere Verbindung zu %1: %2.</translation>
    </message>
    <message>
        <source>The device at %1 cannot be reached: %2.</source>
        <translation>Das Gerät unter %1 ist nicht erreichbar: %2.</translation>
    </message>
    <message>
        <source>The device at %1 did not answer within %2 s.</source>
        <translation>Das Gerät unter %1 hat nicht innerhalb von %2 s geantwortet.</translation>
    </message>
    <message>
        <source>The device at %1 cannot be reached: no connection within %2 s.</source>
        <translation>Das Gerät unter %1 ist nicht erreichbar: keine Verbindung innerhalb von %2 s.</translation>
    </message>
</context>
<context>
    <name>vms_sdk::onvif::SoapAnswer</name>
    <message>
        <source>The device refuses the user name or password.</source>
        <translation>Das Gerät lehnt Benutzername oder Passwort ab.</translation>
    </message>
    <message>
        <source>The device has locked the account.</source>
        <translation>Das Gerät hat das Konto gesperrt.</translation>
    </message>
    <message>
        <source>The device has not been activated yet.</source>
        <translation>Das Gerät wurde noch nicht aktiviert.</translation>
    </message>
    <message>
        <source>The device does not support what was asked.</source>
        <translation>Das Gerät unterstützt die Anfrage nicht.</translation>
    </message>
    <message>
        <source>The device has reached a limit of its own.</source>
        <translation>Das Gerät hat eine eigene Grenze erreicht.</translation>
    </message>
    <message>
        <source>The device does not know what was asked for.</source>
        <translation>Das Gerät kennt das Angefragte nicht.</translation>
    </message>
    <message>
        <source>The device refuses the request.</source>
        <translation>Das Gerät lehnt die Anfrage ab.</translation>
    </message>
    <message>
        <source>The device refuses the request: %1</source>
        <translation>Das Gerät lehnt die Anfrage ab: %1</translation>
    </message>
    <message>
        <source>The device&apos;s answer cannot be read.</source>
        <translation>Die Antwort des Geräts ist nicht lesbar.</translation>
    </message>
</context>
<context>
    <name>vms_sdk::onvif::SoapClient</name>
    <message>
        <source>The device redirects more than %1 times.</source>
        <translation>Das Gerät leitet mehr als %1-mal um.</translation>
    </message>
    <message>
        <source>The device redirects to an address that cannot be used.</source>
        <translation>Das Gerät leitet auf eine Adresse um, die nicht verwendbar ist.</translation>
    </message>
    <message>
        <source>The device redirects to another host (%1), where the login is not sent.</source>
        <translation>Das Gerät leitet auf einen anderen Host (%1) um, an den die Anmeldung nicht gesendet wird.</translation>
    </message>
    <message>
        <source>The device redirects from a secure to an open connection, where the login is not sent.</source>
        <translation>Das Gerät leitet von einer sicheren auf eine offene Verbindung um, über die die Anmeldung nicht gesendet wird.</translation>
    </message>
    <message>
        <source>The device refuses the user name or password.</source>
        <translation>Das Gerät lehnt Benutzername oder Passwort ab.</translation>
    </message>
    <message>
        <source>The device still asks for the login after %1 rounds.</source>
        <translation>Das Gerät verlangt nach %1 Runden immer noch die Anmeldung.</translation>
    </message>
    <message>
        <source>The device wants the password in clear, which is not sent on an open connection.</source>
        <translation>Das Gerät verlangt das Passwort im Klartext, das über eine offene Verbindung nicht gesendet wird.</translation>
    </message>
    <message>
        <source>The device offers no way of login that can be used.</source>
        <translation>Das Gerät bietet kein verwendbares Anmeldeverfahren.</translation>
    </message>
    <message>
        <source>There is no ONVIF service at this address.</source>
        <translation>Unter dieser Adresse gibt es keinen ONVIF-Dienst.</translation>
    </message>
    <message>
        <source>The device has locked the account.</source>
        <translation>Das Gerät hat das Konto gesperrt.</translation>
    </message>
    <message>
        <source>The device is busy or has reached a limit of its own.</source>
        <translation>Das Gerät ist beschäftigt oder hat eine eigene Grenze erreicht.</translation>
    </message>
    <message>
        <source>The device refuses the request (HTTP %1).</source>
        <translation>Das Gerät lehnt die Anfrage ab (HTTP %1).</translation>
    </message>
    <message>
        <source>There is not enough memory to read what the device answers.</source>
        <translation>Der Arbeitsspeicher reicht nicht, um die Antwort des Geräts zu lesen.</translation>
    </message>
</context>
<context>
    <name>vms_sdk::onvif::TlsCheck</name>
    <message>
        <source>its key is not the one that was accepted before</source>
        <translation>sein Schlüssel ist nicht der zuvor akzeptierte</translation>
    </message>
    <message>
        <source>it shows no certificate</source>
        <translation>es zeigt kein Zertifikat</translation>
    </message>
</context>
<context>
    <name>vms_sdk::onvif::XmlGuard</name>
    <message>
        <source>The device&apos;s answer is larger than %1 bytes.</source>
        <translation>Die Antwort des Geräts ist größer als %1 Byte.</translation>
    </message>
    <message>
        <source>The device&apos;s answer is not UTF-8 text.</source>
        <translation>Die Antwort des Geräts ist kein UTF-8-Text.</translation>
    </message>
    <message>
        <source>The device&apos;s answer contains a document type definition.</source>
        <translation>Die Antwort des Geräts enthält eine Dokumenttypdefinition.</translation>
    </message>
    <message>
        <source>The device&apos;s answer ends in the middle of its markup.</source>
        <translation>Die Antwort des Geräts endet mitten in einer Auszeichnung.</translation>
    </message>
    <message>
        <source>The device&apos;s answer has more than %1 elements.</source>
        <translation>Die Antwort des Geräts hat mehr als %1 Elemente.</translation>
    </message>
    <message>
        <source>The device&apos;s answer has a tag longer than %1 bytes.</source>
        <translation>Die Antwort des Geräts hat ein Tag von mehr als %1 Byte.</translation>
    </message>
    <message>
        <source>The device&apos;s answer has an element with more than %1 attributes.</source>
        <translation>Die Antwort des Geräts hat ein Element mit mehr als %1 Attributen.</translation>
    </message>
    <message>
        <source>The device&apos;s answer is nested deeper than %1 elements.</source>
        <translation>Die Antwort des Geräts ist tiefer als %1 Elemente verschachtelt.</translation>
    </message>
</context>
<context>
    <name>vms_sdk::rtsp::RtspConnection</name>
    <message>
        <source>%1 did not answer when a connection was tried.</source>
        <translation>%1 hat auf den Verbindungsversuch nicht geantwortet.</translation>
    </message>
    <message>
        <source>The key of the recorder&apos;s certificate has changed.</source>
        <translation>Der Schlüssel im Zertifikat des Rekorders hat sich geändert.</translation>
    </message>
    <message>
        <source>The certificate of %1 is not trusted: %2</source>
        <translation>Dem Zertifikat von %1 wird nicht vertraut: %2</translation>
    </message>
    <message>
        <source>%1 asks without reading the answers, beyond the limit of %2 bytes.</source>
        <translation>%1 fragt über die Grenze von %2 Byte hinaus, ohne die Antworten zu lesen.</translation>
    </message>
    <message>
        <source>%1 closed the connection.</source>
        <translation>%1 hat die Verbindung geschlossen.</translation>
    </message>
    <message>
        <source>%1 refused the connection.</source>
        <translation>%1 hat die Verbindung abgelehnt.</translation>
    </message>
    <message>
        <source>There is no host named %1.</source>
        <translation>Es gibt keinen Host namens %1.</translation>
    </message>
    <message>
        <source>No secure connection to %1 is possible; it needs TLS 1.2 or newer.</source>
        <translation>Keine sichere Verbindung zu %1 möglich; sie braucht TLS 1.2 oder neuer.</translation>
    </message>
    <message>
        <source>%1 ended the attempt of a secure connection.</source>
        <translation>%1 hat den Versuch einer sicheren Verbindung beendet.</translation>
    </message>
    <message>
        <source>%1 cannot be reached.</source>
        <translation>%1 ist nicht erreichbar.</translation>
    </message>
    <message>
        <source>a line longer than the limit of %1 bytes</source>
        <translation>eine Zeile über der Grenze von %1 Byte</translation>
    </message>
    <message>
        <source>an answer beyond the limit of %1 headers</source>
        <translation>eine Antwort über der Grenze von %1 Kopfzeilen</translation>
    </message>
    <message>
        <source>an answer beyond the limit of %1 bytes</source>
        <translation>eine Antwort über der Grenze von %1 Byte</translation>
    </message>
    <message>
        <source>an answer whose length is no number</source>
        <translation>eine Antwort, deren Länge keine Zahl ist</translation>
    </message>
    <message>
        <source>something that is no RTSP</source>
        <translation>etwas, das kein RTSP ist</translation>
    </message>
    <message>
        <source>%1 sent %2.</source>
        <translation>%1 hat gesendet: %2.</translation>
    </message>
    <message>
        <source>There is not enough memory to read what %1 sends.</source>
        <translation>Der Arbeitsspeicher reicht nicht, um zu lesen, was %1 sendet.</translation>
    </message>
</context>
<context>
    <name>vms_sdk::rtsp::StreamClient</name>
    <message>
        <source>%1 does not know the requested recording or channel.</source>
        <translation>%1 kennt die angeforderte Aufnahme oder den Kanal nicht.</translation>
    </message>
    <message>
        <source>%1 has nothing recorded for the requested time.</source>
        <translation>%1 hat für die angeforderte Zeit nichts aufgezeichnet.</translation>
    </message>
    <message>
        <source>%1 has not enough bandwidth for a further stream.</source>
        <translation>%1 hat nicht genug Bandbreite für eine weitere Übertragung.</translation>
    </message>
    <message>
        <source>%1 has reached its limit of connections.</source>
        <translation>%1 hat seine Verbindungsgrenze erreicht.</translation>
    </message>
    <message>
        <source>%1 does not send over TCP.</source>
        <translation>%1 sendet nicht über TCP.</translation>
    </message>
    <message>
        <source>%1 refused the request: %2 %3</source>
        <translation>%1 hat die Anfrage abgelehnt: %2 %3</translation>
    </message>
    <message>
        <source>%1 wants a login, and there is none for it.</source>
        <translation>%1 verlangt eine Anmeldung, und es gibt keine dafür.</translation>
    </message>
    <message>
        <source>%1 refused user name or password.</source>
        <translation>%1 hat Benutzername oder Passwort abgelehnt.</translation>
    </message>
    <message>
        <source>%1 refused the login after the limit of %2 rounds.</source>
        <translation>%1 hat die Anmeldung nach der Grenze von %2 Runden abgelehnt.</translation>
    </message>
    <message>
        <source>%1 wants the password in clear text over a connection that is not secure.</source>
        <translation>%1 verlangt das Passwort im Klartext über eine unsichere Verbindung.</translation>
    </message>
    <message>
        <source>%1 offers no way to log in that is known or as safe as before.</source>
        <translation>%1 bietet kein Anmeldeverfahren, das bekannt oder so sicher wie zuvor ist.</translation>
    </message>
    <message>
        <source>The stream&apos;s address is none of RTSP.</source>
        <translation>Die Adresse der Übertragung ist keine RTSP-Adresse.</translation>
    </message>
    <message>
        <source>%1 has stopped sending.</source>
        <translation>%1 sendet nicht mehr.</translation>
    </message>
    <message>
        <source>%1 did not answer within %2 s.</source>
        <translation>%1 hat nicht innerhalb von %2 s geantwortet.</translation>
    </message>
    <message>
        <source>a picture beyond the limit of %1 MiB</source>
        <translation>ein Bild über der Grenze von %1 MiB</translation>
    </message>
    <message>
        <source>a picture beyond the limit of %1 NAL units</source>
        <translation>ein Bild über der Grenze von %1 NAL-Einheiten</translation>
    </message>
    <message>
        <source>%1 sent %2.</source>
        <translation>%1 hat gesendet: %2.</translation>
    </message>
    <message>
        <source>%1 has ended the live video.</source>
        <translation>%1 hat das Live-Video beendet.</translation>
    </message>
    <message>
        <source>%1 does not know the session any more.</source>
        <translation>%1 kennt die Sitzung nicht mehr.</translation>
    </message>
    <message>
        <source>%1 points to an address that is none of RTSP.</source>
        <translation>%1 verweist auf eine Adresse, die keine RTSP-Adresse ist.</translation>
    </message>
    <message>
        <source>%1 redirects beyond the limit of %2 times.</source>
        <translation>%1 leitet über die Grenze von %2-mal hinaus um.</translation>
    </message>
    <message>
        <source>%1 redirects from a secure to an open connection.</source>
        <translation>%1 leitet von einer sicheren auf eine offene Verbindung um.</translation>
    </message>
    <message>
        <source>%1 sent no readable description of the stream.</source>
        <translation>%1 hat keine lesbare Beschreibung der Übertragung gesendet.</translation>
    </message>
    <message>
        <source>%1 sends nothing that can be received: %2</source>
        <translation>%1 sendet nichts, was empfangen werden kann: %2</translation>
    </message>
    <message>
        <source>%1 moved the stream elsewhere.</source>
        <translation>%1 hat die Übertragung verlegt.</translation>
    </message>
</context>
</TS>
