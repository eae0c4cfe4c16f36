<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>CopyFolder</name>
    <message>
        <source>%1 is not the folder any more that it was at the beginning.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be written to: %2.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FileCopier</name>
    <message>
        <source>%1 can&apos;t be written: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 can&apos;t be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is not enough room for %1: it needs %2 MB, %3 MB are free.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 can&apos;t be copied to %2: %3.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 can&apos;t be read: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 can&apos;t be read back: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 did not come back from the disk as it was written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 changed while it was copied.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 has %2 bytes instead of %3.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder of %1 was taken away or replaced while copying.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PlainFile</name>
    <message>
        <source>%1 can&apos;t be read: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is not there.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is not a file.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Page %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VCOMMON::FileChecksum</name>
    <message>
        <source>%1 can&apos;t be read: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SHA-256 is not available.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VCOMMON::LocalFolderScan</name>
    <message>
        <source>The folder %1 is not there or can&apos;t be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder %1 has more than %2 files; the rest was left out.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another disk lies at %1; the files known there are kept in the list.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VCOMMON::RecordingFile</name>
    <message>
        <source>The file is empty.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is no MP4 file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file was not finished; what there is of it can be played.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is cut off: %1 of at least %2 bytes are there.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The index of the file is missing: it was not finished, or its end is damaged.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file holds no pictures.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file can&apos;t be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is not there.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VCOMMON::SnapImageFile</name>
    <message>
        <source>The file is empty.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is no picture.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The end of the picture is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file can&apos;t be read.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VCOMMON::SnapImageWriter</name>
    <message>
        <source>The picture for %1 can&apos;t be encoded.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be made.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 can&apos;t be written: %2.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::BaseTools</name>
    <message>
        <source>Channel %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Device</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Platform Storage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edge Card</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cloud</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This Computer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::ClientTree</name>
    <message>
        <source>Channels</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::ClientTreeWt</name>
    <message>
        <source>Filter by channel name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>One list of all channels by name</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::ClockSlider</name>
    <message>
        <source>Position</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lost in transfer %1 to %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No recording %1 to %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::DateSelectLineEdit</name>
    <message>
        <source>Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the calendar</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::DatetimeSpanSelWt</name>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Today</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last 7 days</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last 30 days</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Begin</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, clock time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 days</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This clock time does not exist on that day.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The end must lie behind the begin.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>At most %1 days can be searched at once.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::DayCalendar</name>
    <message>
        <source>Day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Month before</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next month</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::DisabledWaitingWt</name>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::DiskFreeSpaceBar</name>
    <message>
        <source>%1 GB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 TB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Asking the disk...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 can&apos;t be read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %2 free of %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, full</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, low</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1
Backups go to %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::ImageViewerDlg</name>
    <message>
        <source>This image can&apos;t be read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 x %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::LocalPlaybackDlg</name>
    <message>
        <source>Opening %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Snapshot saved as %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This recording has sound only.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::LocalViewTree</name>
    <message>
        <source>%1, %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::MpvWorker</name>
    <message>
        <source>The player&apos;s library can&apos;t be loaded: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The player can&apos;t be started: there is not enough memory.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The player can&apos;t be started: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The player can&apos;t show pictures: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is not there any more.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is not a file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is empty.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 can&apos;t be read: you have no permission.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 can&apos;t be read as a video: it is none, or its beginning or its end is damaged.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 has neither a picture nor sound that can be played.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 can&apos;t be opened. It may be damaged, or another program holds it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 can&apos;t be played: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The player gives no picture: %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::NavigationEntry</name>
    <message>
        <source>Group, open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Group, closed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current page</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::NavigationWidget</name>
    <message>
        <source>Navigation</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::PageEditWt</name>
    <message>
        <source>Go to</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Entries on a page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 / page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Go to page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>First page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Previous page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>0 entries</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1-%2 of %3</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::PictureFile</name>
    <message>
        <source>This recording has no picture yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is not there or may not be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This image can&apos;t be read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The image is too large to be shown: %1 x %2 pixels.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The image file is too large to be shown.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::PlaybackTexts</name>
    <message>
        <source>1 gap</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 gaps</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::PlayerTitleBar</name>
    <message>
        <source>Close (Esc)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::ProgressButton</name>
    <message>
        <source>%1 %2%</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::SearchBox</name>
    <message>
        <source>Clear the filter</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::SettingToolWt</name>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::SpanWords</name>
    <message>
        <source>%1 To %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 h</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 min %2 s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 recordings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 channel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clocks went forward here, from %1 to %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This hour passed twice, at %1 and at %2.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::TableOperWtStyle</name>
    <message>
        <source>Check all shown rows</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::ToastWt</name>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (%2 times)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::TransportBar</name>
    <message>
        <source>Play (Space)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mute (M)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Snapshot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>10 s back (Left arrow)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frame back (comma)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frame on (period)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>10 s on (Right arrow)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop and go to the beginning</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Speed ([ slower, ] faster)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Speed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Volume</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save the shown picture (S)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full screen (F)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pause (Space)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recording has no sound</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sound on (M)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Leave full screen (F)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::VMessageBox</name>
    <message>
        <source>No</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please confirm</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_base::ViewerBar</name>
    <message>
        <source>Previous (Left arrow)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next (Right arrow)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom out (-)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom in (+)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fit into the window (0)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Actual size (1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Turn left (Shift+R)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Turn right (R)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy (Ctrl+C)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open the folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Full screen (F)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1%</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Leave full screen (F)</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a day; days are written as 2026-01-10.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--%1 takes a number from 1 to %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a span of the day; spans are written as 08:00-12:00.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The spans of --segments overlap at %1; an end takes its whole minute in.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>At most %1 spans a day.</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The end, %1, is not after the begin, %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Give either --all or what to choose by: --begin, --end, --channel.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--yes is missing; list tells what would be deleted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloads what a recorder has of a span of time, as MP4.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lists the recordings of a channel in a span of time.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>See vemo_client %1 --help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is one argument too many.</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--ca is not kept for stored recorders; use --pin.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The name of a recording has at most %1 characters.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A recording belongs to one channel; give one --channel with --file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This name of a recording does not tell its span; give --begin and --end.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not the id of a task.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Give either --id or --all.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>less than 1 GiB is free on the disk of the file, so the download was not begun.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the download could not be begun.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> and %1 more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the recorder has footage of %1%2 that did not arrive; what arrived is in %3.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the stream broke off at %1; what arrived until then is in %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the stream broke off before the first picture.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the recorder lists recordings for the span, but sent no picture of them.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the recorder sent nothing for %1 to %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 can&apos;t be written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the disk is full.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no recording from %1 to %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the recorder refused the login.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the recorder serves no further stream at the moment.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the stream could not be opened.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the download failed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wrong login</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Locked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not activated</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connection limit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Certificate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Offline</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recorder refused the login</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The account is locked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recorder is not activated</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recorder takes no more connections</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The certificate is not trusted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recorder can&apos;t be reached</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recorder does not answer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The connection broke off</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No recorder answers at this address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recorder speaks another language</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The answer can&apos;t be read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The login failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check user and password. Many recorders lock the account after a few wrong tries.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wait until the recorder unlocks it, often 30 min, then try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Give it its first password on its own screen or web page, then try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close other programs that are connected to it. It is tried again by itself.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing was sent to it. Check the address, or ask who runs the recorder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check address, cable and power. It is tried again by itself.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check address and port, and whether ONVIF is switched on in the recorder&apos;s settings.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Try again. If it stays so, the recorder&apos;s own log tells more.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recorder shows another key than the trusted one</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its certificate was renewed, or something stands between you and it. Nothing was sent to it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SHA-256 of the new key:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recorder&apos;s key is not known yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Compare it with the one that the recorder shows. Nothing was sent to it so far.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SHA-256 of the key:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The address carries a login. Put user and password into their own fields.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The address names no host. Example: 192.168.1.20</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The port must be a number from 1 to 65535.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An address of numbers has four of them from 0 to 255. Example: 192.168.1.20</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::AdministratorPage</name>
    <message>
        <source>Password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repeat the password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Theme</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create the administrator</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This account manages users, recorders and storage. It is kept on this computer only.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>User name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 characters or more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dark</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Light</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>System</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create and continue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A lost password cannot be recovered. Another administrator can set a new one.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The two passwords differ</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::AuthForm</name>
    <message>
        <source>Step %1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::AuthWt</name>
    <message>
        <source>Version %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Every hour that matters,
safe on your own disks.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Live view, playback, downloads and planned backup of your network recorders.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::BackupListing</name>
    <message>
        <source>ID</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>DAY</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CHANNEL</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>STATE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SAFE</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the recorder was not asked yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>nothing recorded</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::BackupRun</name>
    <message>
        <source>Failed to export file:%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder for backups, %1, is not there or can&apos;t be written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder %1 is not there or can&apos;t be written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The disk space is insufficient, total file size:%1M, disk free space:%2M, disk name:%3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 tasks failed; see vemo_client backup list.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stopped; what had arrived is kept, and the rest is fetched by the next run.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export backup files finished, files total count:%1, success count:%2, failure count:%3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Interrupted; what had arrived is kept, and the rest is fetched by the next run.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::BackupVerb</name>
    <message>
        <source>Interrupted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No run of the backups is at work in this data folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No task was added: a day has at most %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The database could not be written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 tasks are planned already.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::BlockedPage</name>
    <message>
        <source>The accounts can&apos;t be opened</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nobody can log in until that is mended. Recordings and settings are untouched.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Whoever owns this computer account can make a new administrator in a terminal; the files that can&apos;t be opened are kept under another name:
vemo_client user add --name NAME --password-file FILE --administrator</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::ChannelDownload</name>
    <message>
        <source>%1: interrupted; what had arrived is kept in %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: interrupted before anything had arrived.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: no recording from %2 to %3.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::CliBackupParser</name>
    <message>
        <source>See vemo_client backup --help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no action of backup.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What to do with the backups is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is one argument too many.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::CliLocalParser</name>
    <message>
        <source>See vemo_client local --help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither recordings nor snapshots.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no action of local.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What to do with the local files is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is one argument too many.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::CliParser</name>
    <message>
        <source>Shows this help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows the version.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keeps settings and data below &lt;dir&gt;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>dir</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Starts the window in this theme: dark or light.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Address of the recorder: its ONVIF device service (http, https; the path may be left out), or a replay address (rtsp, rtsps; {channel} stands for the channel&apos;s number).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>url</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>User on the recorder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File whose first line is the password. Without it, the environment variable VEMO_PASSWORD.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel number from 1; several: 1,2,3.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>n</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Begin, as 2026-01-10T08:00:00; local time unless an offset follows.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End, likewise.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Accepts only the recorder whose public key has this SHA-256.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>hex</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PEM file of certificates to trust beside the system&apos;s own.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name of one recording, as search tells it; --begin and --end are only needed when the name has no span.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Task to act on, as list tells it; several times for several.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>id</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Acts on every task for which it makes sense.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ends without waiting for the next try of failed tasks.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Day, as 2026-01-10, today or yesterday.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>For so many days from that day on; 1 when left out.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Times of day to back up, as 08:00-12:00,13:00-18:00; an end takes its whole minute in. Without it, the whole day.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>times</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gives a task up in this run after so many failures; 3 when left out.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Folder to copy the files into; it must be there.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writes one JSON object a line.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writes diagnostics to the standard error stream.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File to write, or folder; with several channels a folder. Files there are never overwritten.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vemo, a client for network video recorders. Without a verb it opens the window.

Verbs:
  search    lists the recordings of a channel in a span of time
  download  downloads a span of time as MP4
  queue     works on the stored downloads while no window is open
  backup    plans backups of whole days, and works them off while no window is open
  local     lists, saves and deletes the recordings and snapshots on this computer
Their options: vemo_client &lt;verb&gt; --help
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What to do without a window.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>See vemo_client --help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--theme is dark or light.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a verb.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exit codes: 0 done, 1 failed, 2 wrong use, 3 login refused, 4 recorder not reachable, 5 the recorder&apos;s limit is
reached, 6 disk full or not writable, 7 no recording in the span, 8 incomplete (a playable part is there),
130 interrupted (what had arrived is kept).
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--%1 is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The address of the recorder must be an http, https, rtsp or rtsps address with a host.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The address of the recorder carries a login; give it by --user and --password-file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The password file %1 can&apos;t be read: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The first line of the password file %1 is longer than %2 bytes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The password is missing: give --password-file or set VEMO_PASSWORD.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a channel; channels are numbers from 1 to %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>At most %1 channels at once.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--pin takes a SHA-256: 64 hexadecimal digits.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The certificate file %1 can&apos;t be read: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file %1 holds no PEM certificate.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::CliQueueParser</name>
    <message>
        <source>See vemo_client queue --help.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no action of queue.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What to do with the queue is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is one argument too many.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::DayAxisWt</name>
    <message>
        <source>Recordings of the day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No recording on this day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Alarm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2 of %3 recorded</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::DownloadPrinter</name>
    <message>
        <source>%1 left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2 running</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 to %2, %3 MB in %4 s (%5 MB/s), %6</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the recorder gave no list of recordings to compare this with</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>gap %1 to %2: %3</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::Failures</name>
    <message>
        <source>The recorder gave no reason</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 shows another key than the pinned one, so nothing was sent to it; the SHA-256 of its key is %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The certificate of %1 is not trusted (%2), so nothing was sent to it; if this is the key of your recorder, add --pin %3.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 has no channels, so there is no channel %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 has no channel %2; its channels are %3.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::FirstRecorderWt</name>
    <message>
        <source>Keep it offline</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add your first recorder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its recordings can be searched and fetched as soon as the client is logged in.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Every hour that matters,
safe on your own disks.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search the days of your network recorders and fetch what you need as files.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Try again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add and log in</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::FolderField</name>
    <message>
        <source>Browse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Browse: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 free of %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::FoldersPage</name>
    <message>
        <source>Choose where files are kept</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Footage takes much room. Each folder may lie on a disk of its own and can be changed later in the settings.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recordings and snapshots of live video</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recordings backup</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Continue</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::GuideWindow</name>
    <message>
        <source>Guide</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Headings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The guide is not installed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It belongs to the program&apos;s files. Installing Vemo again brings it back.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::LocalListing</name>
    <message>
        <source>Begin</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::LocalVerb</name>
    <message>
        <source>Capture time:%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Record begin time:%1,file size:%2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Interrupted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 recordings, %2 snapshots; %3 new or changed, %4 of them broken; %5 gone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There are more than %1 recordings; only the oldest are taken. Give --begin and --end.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be made.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 could not be saved: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The files could not be saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The database could not be written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 could not be deleted.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::LocalVerbOptions</name>
    <message>
        <source>Only what touches the time from here on, as 2026-01-10T08:00:00.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only what touches the time up to here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only of the channel with this name.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Every file, of every time and channel.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Folder to save in. Files there are never overwritten.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>dir</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deletes without a further question.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Folder to look through with what is below it, instead of the client&apos;s own; its files are known from then on.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::LoginPage</name>
    <message>
        <source>Password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stay logged in on this computer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Log in</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>User name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Caps Lock is on</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Capital and small letters are told apart.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 download is waiting and goes on after login.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 downloads are waiting and go on after login.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Give the name and the password of your account.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last login of %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Logging in...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You do not stay logged in</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It could not be stored. The next start asks for the password again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This account is disabled. An administrator can enable it again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The user name or the password is wrong.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The user name or the password is wrong. After one more wrong try the account is locked.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The account can be used again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Too many wrong passwords. The account is locked for %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 min %2 s</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::LoginWords</name>
    <message>
        <source>Online</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Password wanted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Certificate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The password is wanted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not kept on this computer, or can&apos;t be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type it once more.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::MainWindow</name>
    <message>
        <source>Stored data</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::ModulePages</name>
    <message>
        <source>Playback</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files Center</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::NoticeBell</name>
    <message>
        <source>Notices</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Notices: %1 new</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Notices: %1 new, %2 of them tell of failures</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1+</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::NoticesModel</name>
    <message>
        <source>%1 (%2 times)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::NoticesPopup</name>
    <message>
        <source>Clear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Notices</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Forget all notices</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No notices. What the client has to tell is kept here.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::OutPath</name>
    <message>
        <source>%1 is a file; several channels need a folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is neither a file nor a folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be made.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder %1 does not exist.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be written.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::PasswordEdit</name>
    <message>
        <source>Show the password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hide the password</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::PlaybackPage</name>
    <message>
        <source>Playback</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Day before</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No list of recordings: mark a span and press Download</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The span has not come yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No channel is chosen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check recordings or mark a span first</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Puts it into the download queue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>, the first %1 are listed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2 channels could not be searched</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recordings of %1 are searched</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>They appear here channel by channel.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check up to %1 channels, pick a day and press Search.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This recorder has no list of recordings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mark a span on the axis, or type two times, and press Download.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recordings could not be searched</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Retry</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no recording on %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pick another day, or check other channels.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was not searched yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press Search to see what the recorder has.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trust this key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type the login</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::QueueEdit</name>
    <message>
        <source>The task %1 is in no state for that.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no task %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::QueueListing</name>
    <message>
        <source>The recorder refused the login.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recorder could not be reached.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The download broke off.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is missing or can&apos;t be used.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recorder gave no address to replay from.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The reason is not known.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Id</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>State</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Begin</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File, or reason</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>waiting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>paused</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>partly</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>done</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::QueueRun</name>
    <message>
        <source>The folder for videos, %1, does not exist.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 running, %2 waiting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>, %1 to be tried again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 tasks failed or are incomplete; see vemo_client queue list.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Interrupted; what had arrived is kept, and the rest waits in the queue.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::QueueTray</name>
    <message>
        <source>Vemo, download queue: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All downloads are done: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The download queue is empty: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What arrived lies in the folder of downloads.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 download has failed; Download Failure says why.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 downloads have failed; Download Failure says why.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::QueueVerb</name>
    <message>
        <source>Interrupted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The database could not be written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 tasks were removed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2 requests are in the queue already.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::QueueWatch</name>
    <message>
        <source>%1 running</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 waiting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 to be retried</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 paused</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>empty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 running, %2 waiting, %3 paused, %4 to be retried</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::RecorderAddress</name>
    <message>
        <source>Type the address of the recorder. Example: 192.168.1.20</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The address is longer than any address is.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An address holds no spaces.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The address must begin with http, https, rtsp or rtsps.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This can&apos;t be read as an address. Example: 192.168.1.20</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::RecorderColumn</name>
    <message>
        <source>Filter by channel name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add a recorder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove the recorder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 and its password are forgotten. Files and finished downloads stay; downloads of it that wait or have failed can&apos;t go on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::RecorderDialog</name>
    <message>
        <source>Keep it offline</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add a recorder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change the recorder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The client logs in at once and keeps the recorder for the next start.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Try again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::RecorderForm</name>
    <message>
        <source>Address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>192.168.1.20 or https://nvr.example/onvif/device_service</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>User name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>as the recorder calls itself</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unchanged</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IP address or name, with a port where it needs one.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replay address: it has no list of recordings, spans of time can be fetched.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ONVIF over %1 at %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TLS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>HTTP</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trust this key</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::RecorderLogins</name>
    <message>
        <source>The recorder stopped answering.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::RecorderSession</name>
    <message>
        <source>%1, channel %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::RecorderTree</name>
    <message>
        <source>Recorders and channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search this channel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Log in again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::RecordersPage</name>
    <message>
        <source>Add your recorders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The client finds recorders in your network by itself; others are added by their address. Their passwords are kept encrypted on this computer.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Look for recorders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Later</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::RecordingSearch</name>
    <message>
        <source>The recorder did not answer the search for recordings in time.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::RecordingsTable</name>
    <message>
        <source>All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Begin</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Length</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recordings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Alarm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Continuous</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::SearchVerb</name>
    <message>
        <source>Interrupted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Begin</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>alarm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>normal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: no recording from %2 to %3.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::ShellWt</name>
    <message>
        <source>The password could not be kept</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It holds while the client runs; after the next start it is asked for again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit Vemo?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 is in it already.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 are in it already.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 recording was added to the queue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 recordings were added to the queue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Up to five are fetched at a time.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing was added to the queue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the queue</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::SpanBar</name>
    <message>
        <source>Span</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Begin of the span</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>To</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End of the span</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>00:00:00 means the end of the day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clear the span</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drag on the axis, or type two times.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The end must lie behind the begin.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::StatusBar</name>
    <message>
        <source>%1 GB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 TB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 MB/s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>less than a minute left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>about %1 min left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>about %1 h %2 min left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Queue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download queue: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2 recorders offline</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows the recorder and why it is not logged in</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What all downloads together receive: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %2 free</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %2 free of %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>, full: no download can start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>, full</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>, nearly full</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1
Opens the folder of downloads: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::StoredRecorder</name>
    <message>
        <source>The password is missing: give --password-file or set VEMO_PASSWORD.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The password could not be kept; nothing was added to the queue.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::StrengthBar</name>
    <message>
        <source>Weak</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Medium</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Very strong</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Strong</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Strength of the password: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::ThemeButton</name>
    <message>
        <source>Theme</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dark</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Light</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::TimeText</name>
    <message>
        <source>&quot;%1&quot; is not a time; write it as 2026-01-10T08:00:00.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no such time as &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; does not exist on this computer&apos;s clock: summer time begins then.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; has an offset that no place on earth has.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::TopBar</name>
    <message>
        <source>Theme</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dark</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Light</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::VerbFolder</name>
    <message>
        <source>The data folder %1 can&apos;t be used.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::VideoTileWt</name>
    <message>
        <source>%1 %2 x %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %2 x %3, %4 fps</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Empty tile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recording. %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::WindowLock</name>
    <message>
        <source>A window or another run is at work in the data folder %1; close it first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The data folder %1 can&apos;t be used.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_client::WindowRun</name>
    <message>
        <source>A window is open on the data folder %1 already; it was asked to come to the front.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The data folder is in use</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another vemo_client works on it and shows no window. Wait until it is done, or end it.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::AddBackupTasksToolWt</name>
    <message>
        <source>Add backup tasks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please Select The Backup Channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tips:Only support Nuvira 2.0 device to backup</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please Set The Backup Time Segments</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>for %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 channel selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 channels selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2 tasks on this day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select Nuvira 2.0 device channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A maximum of %1 tasks can be added in one day, %2 have been added,%3 to be added, please reduce the selected channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please set backup time segments</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to add backup tasks</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupAxisWt</name>
    <message>
        <source>Time segment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backed up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>On the recorder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Alarm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time axis</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupDeviceCheck</name>
    <message>
        <source>Failed to start backup:device offline</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to start backup:device uses weak password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to start backup:wrong user name or password for connecting device</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to start backup:the connection limit of the device has been reached</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to start backup:device uses default password</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to start backup:device not active</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to start backup:device login is locked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to start backup:the login limit of the device has been reached</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to start backup:device relay connection broken</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to start backup:device status unknown</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupExport</name>
    <message>
        <source>Select Export Path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No backup files available for export</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files can&apos;t be written to %1, please select another folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disk not detected, please try again later, disk name:%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The disk space is insufficient, total file size:%1M, disk free space:%2M, disk name:%3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to export file:%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export backup files finished, files total count:%1, success count:%2, failure count:%3</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupLegendWt</name>
    <message>
        <source>Time segment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backed up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>On the recorder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Alarm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Now, %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupSearch</name>
    <message>
        <source>Failed to search video recordings(%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Non-video recordings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Query video recording timeout</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupTargetDay</name>
    <message>
        <source>Days with backup tasks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The backup tasks are those of %1, please select another day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A maximum of %1 tasks can be added in one day, %2 have been added,%3 to be added, please select another day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Apply backup tasks to %1 success</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupTaskTimeAxisWt</name>
    <message>
        <source>start backup</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>export backup files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>delete backup task</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>apply to other day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1(Not Exist)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to delete the video recording backup task?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not searched yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>nothing recorded</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 safe</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A start searches what the recorder holds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recorder held nothing of these times when it was last searched</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 that the recorder holds is in files here</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exporting, %1%</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Searching recordings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Running, %1%</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Finished</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Waiting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Waiting to try again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not started</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, %2, %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>channel no longer exists</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>stop backup</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupTimeSegmentWt</name>
    <message>
        <source>Time Segment 1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>delete time segment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>To</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time Segment %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, end</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This segment starts after its end: it holds no recording. Let it end at 23:59 and add another one from 00:00.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupTimeSegmentsSettingWt</name>
    <message>
        <source>add time segment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2 segments. Overlapping ones are merged.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupWorker</name>
    <message>
        <source>Waiting for backup...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backup is abnormal,the backup will be attempted again later</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder for backups, %1, is not there or lies on another disk, the backup will be attempted again later</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The backup time is later than the current time, no video recordings can be backed up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The disk free space &lt; 1GB,please switch the disk to continue the backup</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The backup limit of he device has been reached, the backup will be attempted again later</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>stop back up, stop time:%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>delete back up task, back up date:%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No video recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Video recording backup success</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, time range:%2 %3~%4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>start back up, start time:%1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::ChannelSnapImagesWt</name>
    <message>
        <source>1 snapshot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 snapshots</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::DevRecordingsBackupPage</name>
    <message>
        <source>Recordings Backup</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Days with backup tasks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Day before</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Apply</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exporting backup files, please wait a moment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exporting backup files, please check other backup tasks after the export is finished</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No backup task on %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A maximum of %1 tasks can be added in one day</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to delete all the backup tasks on %1?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 task</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 tasks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, %2 safe</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No backup is planned for %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press Add to pick channels and time segments.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::DownloadAccess</name>
    <message>
        <source>No download recording permission, please contact the administrator</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::DownloadStateWt</name>
    <message>
        <source>pause</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>waiting download...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::DownloadingOperWt</name>
    <message>
        <source>start downloading</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>clean the task</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>open folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>stop downloading</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::DownloadingRows</name>
    <message>
        <source>waiting download...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pause</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::DownloadingTable</name>
    <message>
        <source>Downloading</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing is being downloaded.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mark a span in Playback and press Download.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Space</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>check</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>start or stop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Del</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>clean the task</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Datetime Range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Location</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download Progress</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Oper</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Batch Start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Batch Stop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Batch Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download path does not exist, please configure available download path in system configuration</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>downloading break off, disk free space &lt; 1GB, disk name:%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>please check tasks to start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>please check tasks to stop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>please check tasks to cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to cancel checked tasks?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>file does not exist</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 running, %2 waiting, %3 paused.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About %1 left.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Less than a minute left.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>about %1 left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Being started</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Waits for one of five places</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The channel no longer exists in this client</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>start downloading</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>stop downloading</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>open folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Details</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::EmptyPage</name>
    <message>
        <source>This page comes with a later version.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::EndedTasksTable</name>
    <message>
        <source>All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Datetime Range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Location</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Oper</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>please check tasks to clean</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to clean checked tasks?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Batch Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>clean the task</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Details</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::ExportBackupFiles</name>
    <message>
        <source>%1 is not any more what it was when it was backed up.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::FailedOperWt</name>
    <message>
        <source>redownload</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>clean the task</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::FailedTable</name>
    <message>
        <source>Download Failure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No download has failed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What fails is kept here until it is fetched or cleaned.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What may pass is tried again after about a minute.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Space</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>check</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>redownload</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Del</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>clean the task</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>State</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Batch Redownload</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Batch Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>please check tasks to redownload</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n task(s), newest first</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>The channel no longer exists in this client, so it can&apos;t be tried again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Retry in %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Check user and password of the recorder, then press &quot;redownload&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is not tried again by itself: press &quot;redownload&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::FileVerifier</name>
    <message>
        <source>It had %L1 bytes when it was finished and has %L2 now</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its length is the same, its content is not</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is what was downloaded: its SHA-256 is the one kept when it was finished.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is not what was downloaded. %2. Download it again if the recorder still has it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is not there any more, so nothing can be compared.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No SHA-256 of %1 was kept when it was finished. Its present one is kept from now on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 can&apos;t be verified: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::FilesCenterForm</name>
    <message>
        <source>FilesCenterForm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download Mgr</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download Success</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download Failure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Local Recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Local Snapshot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Local Files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recordings Backup</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Downloading(%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download Success(%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download Failure(%1)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalFilesMgrPage</name>
    <message>
        <source>Files Directory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Dir</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filter by name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save AS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Local Files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There are no recordings or images in this folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files ending in mp4, jpg or png are shown. Open another folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No file matches the filter.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The filter looks for a part of the file&apos;s name.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clear the filter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This folder is no longer there.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It was removed, or its disk is not connected. Open another folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to delete file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saving As:%1%</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save file as successful</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save file as failure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Directory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select a file to delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to delete file:%1?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select a file to save as</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Video(*.mp4)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Images(*.jpg *.png)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save As</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2, %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 video</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 videos</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 images</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalFilesSaveAs</name>
    <message>
        <source>Select Save As Path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saving As:%1/%2(%3%)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save as file failed:%1(%2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalRecordingOperWt</name>
    <message>
        <source>open the file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>open folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>delete file</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalRecordingRows</name>
    <message>
        <source>Damaged</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file does not tell its time. This one comes from when it was last written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Missing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>file does not exist</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalRecordingsMgrPage</name>
    <message>
        <source>Time Space Sel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filter by channel name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save AS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Oper</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Local Recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There are no recordings in this span.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What live view records appears here. Choose another span, or look for files that came into the folder another way.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Look for new files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No recording matches the filter.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The filter looks for a part of the channel&apos;s name.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clear the filter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>searching local recordings...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Looking for new files...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The first %L1 of this span; choose a shorter one to see all</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Video kept on this computer while live view recorded</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>search none local recordings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>file does not exist</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>open the file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>open folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>delete file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete checked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save checked as</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select local recordings to save as</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to delete the recording:%1(%2)?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select local recordings to delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to delete select local recordings?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>delete local recordings...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to delete local recordings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Record begin time:%1,file size:%2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalSnapImageCard</name>
    <message>
        <source>enlarge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>save as</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to delete the snap image?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save As</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Images(*.bmp)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Images (*.jpg)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This image can&apos;t be read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 x %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalSnapImageCardsBox</name>
    <message>
        <source>enlarge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>save as</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>open folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy path</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalSnapImagesMgrPage</name>
    <message>
        <source>Time Space Sel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filter by channel name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save AS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Capture time:%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to delete snap images</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Local Snapshot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There are no snapshots in this span.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What is captured in live view or the player appears here. Choose another span, or search again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No channel matches the filter.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The filter looks for a part of the channel&apos;s name.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clear the filter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>search none local snap images</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>please select snap images to delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Do you want to delete selected snap images?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select snap images to save as</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 snapshot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 snapshots</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 channel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 channels</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::RecordingsBackUpTree</name>
    <message>
        <source>no replay</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::SuccessOperWt</name>
    <message>
        <source>open the file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>open folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>clean the task</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::SuccessTable</name>
    <message>
        <source>Download Success</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No download has finished yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Finished files appear here, the newest at the top. Mark a span in Playback and press Download.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Space</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>check</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>open the file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Del</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>clean the task</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Batch Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download success,record source:%1, time range:%2, file size:%3</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n file(s), newest first</source>
        <translation type="unfinished">
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>file does not exist</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>download path is invalid</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>open folder</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::TaskDetailsText</name>
    <message>
        <source>%1 to %2 (%3)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>; begins %1 later than asked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>; ends %1 earlier than asked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Received</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gaps</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>none</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>lost in transfer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not recorded</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 to %2, %3, %4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Losses</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%L1 frames did not arrive whole</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Media</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 MB (%L2 bytes)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recorder refused the login. It is not tried again by itself: correct user and password of the recorder, then redownload.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recorder could not be reached, or had no connection left. It is tried again by itself; check network and power of the recorder if that goes on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The download broke off. What arrived is kept as a file of its own; the rest is fetched again by itself.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recording can&apos;t be read, or the file can&apos;t be written. It is not tried again by itself: check the download folder and its disk, then redownload.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recorder gave no address for the recording, which it may have overwritten. It is tried again by itself; search the recordings of that day to see what is left.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reason</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What next</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Asked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 MB/s, %2 in all</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>less than 1 s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SHA-256</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not summed yet</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::TaskDetailsWt</name>
    <message>
        <source>Verify</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy checksum</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Details</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close the details</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copied as a line that &quot;sha256sum -c&quot; reads.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is not there any more: it was deleted, moved or renamed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no file yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the file: %1%</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only a finished download can be verified</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is being read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Compare the file with the checksum kept when it was finished</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy the checksum as a line that &quot;sha256sum -c&quot; reads</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No checksum is kept yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open the folder with the file selected</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::TaskPageFrame</name>
    <message>
        <source>Open Playback</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2 checked</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::TaskTexts</name>
    <message>
        <source>%1(No longer exists)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Device does not exist</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Login Dev Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connect Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Download Abnormal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Get Url Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recorder refused the login.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recorder could not be reached.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The download broke off. What arrived is kept.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file was gone when the download ended.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recorder gave no address to replay the recording from.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>less than a minute</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 MB/s</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::TasksTableCommonOper</name>
    <message>
        <source>Do you want to delete download task:%1(%2)?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_worker</name>
    <message>
        <source>There is no user %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The password can&apos;t be worked on: the system has not enough free memory.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_worker::ClientSecretKey</name>
    <message>
        <source>The system gives no random numbers.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The key file %1 can&apos;t be written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The key file %1 can&apos;t be read: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The stored passwords are locked; set VEMO_SECRETS_PASSWORD.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>VEMO_SECRETS_PASSWORD is not the password of the stored passwords.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The key file %1 is damaged.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_worker::DictDef</name>
    <message>
        <source>Alert</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Prompt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Warning</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_worker::FolderCheck</name>
    <message>
        <source>The disk or network place does not answer. Choose another folder or connect it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Give the whole path of a folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is a file. Choose a folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The disk is read-only. Choose another folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files can&apos;t be made in this folder. Choose another one or have its access rights changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Less than 1 GB is free on this disk. Make room or choose another folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writing a file in this folder failed: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Less than 10 GB is free on this disk.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writing here is slow: %1 MB/s. Downloads may have to wait for this disk.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The network place can&apos;t be reached. Choose another folder or connect it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drive %1 is not connected. Choose another folder or connect the drive.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The disk of this folder is not connected. Choose another folder or connect the disk.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This folder is not there yet.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_worker::SealedFile</name>
    <message>
        <source>The file %1 is damaged.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_worker::UserRules</name>
    <message>
        <source>The user name is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The user name is longer than %1 characters.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The user name has a character that can&apos;t be seen.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The password of an administrator has %1 characters or more.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The password has %1 characters or more.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The password is longer than %1 characters.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The password is the user name; choose another one.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The password is too easy to guess. Mix letters with digits or signs.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vemo_worker::UserStore</name>
    <message>
        <source>The file %1 is of another version.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file %1 can&apos;t be written; nothing was changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is a user %1 already.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The first user has to be an administrator.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The accounts can&apos;t be opened.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There are %1 users already, which is the limit.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The account is locked after too many wrong passwords. Try again later.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The current password is wrong.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is the only administrator; make another one first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is the only administrator and stays enabled; make another one first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is the only administrator and can&apos;t be removed.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vms_sdk::DeviceSession</name>
    <message>
        <source>The device at %1 cannot be reached: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device at %1 cannot be reached: no connection within %2 s.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device&apos;s address must begin with http, https, rtsp or rtsps.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device has no channel %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device offers no replay of channel %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device gives no replay address for the recording.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device offers no live video of channel %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device was logged out.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vms_sdk::DiscoveryJob</name>
    <message>
        <source>This computer is connected to no network.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vms_sdk::LoginFlow</name>
    <message>
        <source>Channel %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vms_sdk::SdkCore</name>
    <message>
        <source>The end of the time span lies before its begin.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vms_sdk::SearchJob</name>
    <message>
        <source>The device has no channel %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device offers no search of recordings.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device was logged out.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device does not get on with its search.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device&apos;s answer cannot be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device tells of more than %1 events in this time; search a shorter one.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device tells of more than %1 recordings in this time; search a shorter one.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The search was cancelled.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vms_sdk::SearchRequests</name>
    <message>
        <source>The search was not answered within %1 s.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vms_sdk::SoapWorker</name>
    <message>
        <source>The device is not known.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vms_sdk::StreamRegistry</name>
    <message>
        <source>The recording&apos;s name is not one that a search gave.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recording ends before the place to play from.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The time to play from is not a time.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The end of the time span lies before its begin.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device was logged out.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vms_sdk::onvif::HttpAnswerReader</name>
    <message>
        <source>The device closed the connection in the middle of its answer.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device&apos;s answer has a line longer than %1 bytes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device&apos;s answer cannot be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device&apos;s answer has more than %1 headers.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device does not answer in HTTP.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device&apos;s answer is larger than %1 bytes.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vms_sdk::onvif::HttpConnection</name>
    <message>
        <source>The device at %1 is not trusted: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The connection to %1 broke off.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No secure connection to %1: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device at %1 cannot be reached: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device at %1 did not answer within %2 s.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device at %1 cannot be reached: no connection within %2 s.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vms_sdk::onvif::SoapAnswer</name>
    <message>
        <source>The device refuses the user name or password.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device has locked the account.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device has not been activated yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device does not support what was asked.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device has reached a limit of its own.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device does not know what was asked for.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device refuses the request.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device refuses the request: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device&apos;s answer cannot be read.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vms_sdk::onvif::SoapClient</name>
    <message>
        <source>The device redirects more than %1 times.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device redirects to an address that cannot be used.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device redirects to another host (%1), where the login is not sent.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device redirects from a secure to an open connection, where the login is not sent.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device refuses the user name or password.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device still asks for the login after %1 rounds.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device wants the password in clear, which is not sent on an open connection.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device offers no way of login that can be used.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no ONVIF service at this address.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device has locked the account.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device is busy or has reached a limit of its own.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device refuses the request (HTTP %1).</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vms_sdk::onvif::TlsCheck</name>
    <message>
        <source>its key is not the one that was accepted before</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it shows no certificate</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vms_sdk::onvif::XmlGuard</name>
    <message>
        <source>The device&apos;s answer is larger than %1 bytes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device&apos;s answer is not UTF-8 text.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device&apos;s answer contains a document type definition.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device&apos;s answer ends in the middle of its markup.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device&apos;s answer has more than %1 elements.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device&apos;s answer has a tag longer than %1 bytes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device&apos;s answer has an element with more than %1 attributes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The device&apos;s answer is nested deeper than %1 elements.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vms_sdk::rtsp</name>
    <message>
        <source>%1 does not have the requested recording.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 has not enough bandwidth for a further stream.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 has reached its limit of connections.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 does not send recordings over TCP.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 refused the request: %2 %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 wants a login, and there is none for it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 refused user name or password.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 refused the login after the limit of %2 rounds.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 wants the password in clear text over a connection that is not secure.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 offers no way to log in that is known or as safe as before.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vms_sdk::rtsp::ReplayClient</name>
    <message>
        <source>The replay address is none of RTSP.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 has stopped sending.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 did not answer within %2 s.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a picture beyond the limit of %1 MiB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a picture beyond the limit of %1 NAL units</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 sent %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 has nothing recorded for the requested time.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 has ended the live video.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 does not know the session any more.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 points to an address that is none of RTSP.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 redirects beyond the limit of %2 times.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 redirects from a secure to an open connection.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 sent no readable description of the recording.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 sends nothing that can be received: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 does not send recordings over TCP.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 moved the stream elsewhere.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>vms_sdk::rtsp::RtspConnection</name>
    <message>
        <source>%1 did not answer when a connection was tried.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The key of the recorder&apos;s certificate has changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The certificate of %1 is not trusted: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 asks without reading the answers, beyond the limit of %2 bytes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 closed the connection.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 refused the connection.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no host named %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No secure connection to %1 is possible; it needs TLS 1.2 or newer.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 ended the attempt of a secure connection.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 cannot be reached.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a line longer than the limit of %1 bytes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>an answer beyond the limit of %1 headers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>an answer beyond the limit of %1 bytes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>an answer whose length is no number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>something that is no RTSP</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 sent %2.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
