<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>CopyFolder</name>
    <message>
        <source>%1 is not the folder any more that it was at the beginning.</source>
        <translation>%1已不是开始时的那个文件夹。</translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be written to: %2.</source>
        <translation>无法写入文件夹%1：%2。</translation>
    </message>
</context>
<context>
    <name>FileCopier</name>
    <message>
        <source>%1 can&apos;t be written: %2.</source>
        <translation>无法写入%1：%2。</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read.</source>
        <translation>无法读取%1。</translation>
    </message>
    <message>
        <source>There is not enough room for %1: it needs %2 MB, %3 MB are free.</source>
        <translation>空间不足，无法保存%1：需要%2 MB，可用%3 MB。</translation>
    </message>
    <message>
        <source>%1 can&apos;t be copied to %2: %3.</source>
        <translation>无法将%1复制到%2：%3。</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read: %2.</source>
        <translation>无法读取%1：%2。</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read back: %2.</source>
        <translation>无法回读%1：%2。</translation>
    </message>
    <message>
        <source>%1 did not come back from the disk as it was written.</source>
        <translation>从磁盘回读的%1与写入的内容不一致。</translation>
    </message>
    <message>
        <source>%1 changed while it was copied.</source>
        <translation>复制期间%1发生了变化。</translation>
    </message>
    <message>
        <source>%1 has %2 bytes instead of %3.</source>
        <translation>%1的大小为%2字节，应为%3字节。</translation>
    </message>
    <message>
        <source>The folder of %1 was taken away or replaced while copying.</source>
        <translation>复制期间%1所在的文件夹被移走或替换。</translation>
    </message>
</context>
<context>
    <name>PlainFile</name>
    <message>
        <source>%1 can&apos;t be read: %2.</source>
        <translation>无法读取%1：%2。</translation>
    </message>
    <message>
        <source>%1 is not there.</source>
        <translation>%1不存在。</translation>
    </message>
    <message>
        <source>%1 is not a file.</source>
        <translation>%1不是文件。</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Page %1</source>
        <translation>第%1页</translation>
    </message>
</context>
<context>
    <name>VCOMMON::FileChecksum</name>
    <message>
        <source>%1 can&apos;t be read: %2.</source>
        <translation>无法读取%1：%2。</translation>
    </message>
    <message>
        <source>SHA-256 is not available.</source>
        <translation>SHA-256不可用。</translation>
    </message>
</context>
<context>
    <name>VCOMMON::LocalFolderScan</name>
    <message>
        <source>The folder %1 is not there or can&apos;t be read.</source>
        <translation>文件夹%1不存在或无法读取。</translation>
    </message>
    <message>
        <source>The folder %1 has more than %2 files; the rest was left out.</source>
        <translation>文件夹%1中的文件超过%2个，其余文件已略过。</translation>
    </message>
    <message>
        <source>Another disk lies at %1; the files known there are kept in the list.</source>
        <translation>%1处现在是另一块磁盘；该处已知的文件仍保留在列表中。</translation>
    </message>
</context>
<context>
    <name>VCOMMON::RecordingFile</name>
    <message>
        <source>The file is empty.</source>
        <translation>文件为空。</translation>
    </message>
    <message>
        <source>This is no MP4 file.</source>
        <translation>这不是MP4文件。</translation>
    </message>
    <message>
        <source>The file was not finished; what there is of it can be played.</source>
        <translation>文件未写完，已有部分可以播放。</translation>
    </message>
    <message>
        <source>The file is cut off: %1 of at least %2 bytes are there.</source>
        <translation>文件被截断：应至少有%2字节，现有%1字节。</translation>
    </message>
    <message>
        <source>The index of the file is missing: it was not finished, or its end is damaged.</source>
        <translation>文件缺少索引：文件未写完，或末尾已损坏。</translation>
    </message>
    <message>
        <source>The file holds no pictures.</source>
        <translation>文件中没有画面。</translation>
    </message>
    <message>
        <source>The file can&apos;t be read.</source>
        <translation>无法读取文件。</translation>
    </message>
    <message>
        <source>The file is not there.</source>
        <translation>文件不存在。</translation>
    </message>
</context>
<context>
    <name>VCOMMON::SnapImageFile</name>
    <message>
        <source>The file is empty.</source>
        <translation>文件为空。</translation>
    </message>
    <message>
        <source>This is no picture.</source>
        <translation>这不是图片。</translation>
    </message>
    <message>
        <source>The end of the picture is missing.</source>
        <translation>图片末尾缺失。</translation>
    </message>
    <message>
        <source>The file can&apos;t be read.</source>
        <translation>无法读取文件。</translation>
    </message>
</context>
<context>
    <name>VCOMMON::SnapImageWriter</name>
    <message>
        <source>The picture for %1 can&apos;t be encoded.</source>
        <translation>无法为%1编码图片。</translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be made.</source>
        <translation>无法创建文件夹%1。</translation>
    </message>
    <message>
        <source>%1 can&apos;t be written: %2.</source>
        <translation>无法写入%1：%2。</translation>
    </message>
</context>
<context>
    <name>vemo_base::BaseTools</name>
    <message>
        <source>Channel %1</source>
        <translation>通道%1</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>Platform Storage</source>
        <translation>平台存储</translation>
    </message>
    <message>
        <source>Edge Card</source>
        <translation>前端存储卡</translation>
    </message>
    <message>
        <source>Cloud</source>
        <translation>云</translation>
    </message>
    <message>
        <source>This Computer</source>
        <translation>本机</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>未知</translation>
    </message>
</context>
<context>
    <name>vemo_base::ClientTree</name>
    <message>
        <source>Channels</source>
        <translation>通道</translation>
    </message>
</context>
<context>
    <name>vemo_base::ClientTreeWt</name>
    <message>
        <source>Filter by channel name</source>
        <translation>按通道名称筛选</translation>
    </message>
    <message>
        <source>One list of all channels by name</source>
        <translation>所有通道按名称排成一个列表</translation>
    </message>
</context>
<context>
    <name>vemo_base::ClockSlider</name>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Lost in transfer %1 to %2</source>
        <translation>传输中丢失：%1至%2</translation>
    </message>
    <message>
        <source>No recording %1 to %2</source>
        <translation>无录像：%1至%2</translation>
    </message>
</context>
<context>
    <name>vemo_base::DateSelectLineEdit</name>
    <message>
        <source>Date</source>
        <translation>日期</translation>
    </message>
    <message>
        <source>Show the calendar</source>
        <translation>显示日历</translation>
    </message>
</context>
<context>
    <name>vemo_base::DatetimeSpanSelWt</name>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>今天</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>昨天</translation>
    </message>
    <message>
        <source>Last 7 days</source>
        <translation>最近7天</translation>
    </message>
    <message>
        <source>Last 30 days</source>
        <translation>最近30天</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>End</source>
        <translation>结束</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>%1, clock time</source>
        <translation>%1，时刻</translation>
    </message>
    <message>
        <source>%1, day</source>
        <translation>%1，日期</translation>
    </message>
    <message>
        <source>1 day</source>
        <translation>1天</translation>
    </message>
    <message>
        <source>%1 days</source>
        <translation>%1天</translation>
    </message>
    <message>
        <source>This clock time does not exist on that day.</source>
        <translation>当天不存在该时刻。</translation>
    </message>
    <message>
        <source>The end must lie behind the begin.</source>
        <translation>结束时间必须晚于开始时间。</translation>
    </message>
    <message>
        <source>At most %1 days can be searched at once.</source>
        <translation>一次最多可搜索%1天。</translation>
    </message>
</context>
<context>
    <name>vemo_base::DayCalendar</name>
    <message>
        <source>Day</source>
        <translation>日</translation>
    </message>
    <message>
        <source>Month before</source>
        <translation>上个月</translation>
    </message>
    <message>
        <source>Next month</source>
        <translation>下个月</translation>
    </message>
</context>
<context>
    <name>vemo_base::DisabledWaitingWt</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
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
        <translation>正在查询磁盘...</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read</source>
        <translation>无法读取%1</translation>
    </message>
    <message>
        <source>%1 %2 free of %3</source>
        <translation>%1 可用%2，共%3</translation>
    </message>
    <message>
        <source>%1, full</source>
        <translation>%1，已满</translation>
    </message>
    <message>
        <source>%1, low</source>
        <translation>%1，空间不足</translation>
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
        <translation>无法读取该图片</translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation>正在打开%1</translation>
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
        <translation>正在打开%1</translation>
    </message>
    <message>
        <source>Snapshot saved as %1</source>
        <translation>抓图已保存为%1</translation>
    </message>
    <message>
        <source>This recording has sound only.</source>
        <translation>该录像只有声音。</translation>
    </message>
</context>
<context>
    <name>vemo_base::LocalViewTree</name>
    <message>
        <source>%1, %2</source>
        <translation>%1，%2</translation>
    </message>
</context>
<context>
    <name>vemo_base::MpvWorker</name>
    <message>
        <source>The player&apos;s library can&apos;t be loaded: %1.</source>
        <translation>无法加载播放器库：%1。</translation>
    </message>
    <message>
        <source>The player can&apos;t be started: there is not enough memory.</source>
        <translation>无法启动播放器：内存不足。</translation>
    </message>
    <message>
        <source>The player can&apos;t be started: %1.</source>
        <translation>无法启动播放器：%1。</translation>
    </message>
    <message>
        <source>The player can&apos;t show pictures: %1.</source>
        <translation>播放器无法显示画面：%1。</translation>
    </message>
    <message>
        <source>%1 is not there any more.</source>
        <translation>%1已不存在。</translation>
    </message>
    <message>
        <source>%1 is not a file.</source>
        <translation>%1不是文件。</translation>
    </message>
    <message>
        <source>%1 is empty.</source>
        <translation>%1为空。</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read: you have no permission.</source>
        <translation>无法读取%1：没有权限。</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read as a video: it is none, or its beginning or its end is damaged.</source>
        <translation>无法将%1作为视频读取：它不是视频，或其开头或末尾已损坏。</translation>
    </message>
    <message>
        <source>%1 has neither a picture nor sound that can be played.</source>
        <translation>%1中没有可播放的画面或声音。</translation>
    </message>
    <message>
        <source>%1 can&apos;t be opened. It may be damaged, or another program holds it.</source>
        <translation>无法打开%1。文件可能已损坏，或正被其他程序占用。</translation>
    </message>
    <message>
        <source>%1 can&apos;t be played: %2.</source>
        <translation>无法播放%1：%2。</translation>
    </message>
    <message>
        <source>The player gives no picture: %1.</source>
        <translation>播放器没有画面：%1。</translation>
    </message>
</context>
<context>
    <name>vemo_base::NavigationEntry</name>
    <message>
        <source>Group, open</source>
        <translation>分组，已展开</translation>
    </message>
    <message>
        <source>Group, closed</source>
        <translation>分组，已收起</translation>
    </message>
    <message>
        <source>Current page</source>
        <translation>当前页</translation>
    </message>
</context>
<context>
    <name>vemo_base::NavigationWidget</name>
    <message>
        <source>Navigation</source>
        <translation>导航</translation>
    </message>
</context>
<context>
    <name>vemo_base::PageEditWt</name>
    <message>
        <source>Go to</source>
        <translation>跳至</translation>
    </message>
    <message>
        <source>Entries on a page</source>
        <translation>每页条数</translation>
    </message>
    <message>
        <source>%1 / page</source>
        <translation>%1条/页</translation>
    </message>
    <message>
        <source>Go to page</source>
        <translation>跳至页码</translation>
    </message>
    <message>
        <source>First page</source>
        <translation>第一页</translation>
    </message>
    <message>
        <source>Previous page</source>
        <translation>上一页</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>下一页</translation>
    </message>
    <message>
        <source>Last page</source>
        <translation>最后一页</translation>
    </message>
    <message>
        <source>0 entries</source>
        <translation>0条</translation>
    </message>
    <message>
        <source>%1-%2 of %3</source>
        <translation>%1-%2，共%3</translation>
    </message>
</context>
<context>
    <name>vemo_base::PictureFile</name>
    <message>
        <source>This recording has no picture yet.</source>
        <translation>该录像还没有画面。</translation>
    </message>
    <message>
        <source>The file is not there or may not be read.</source>
        <translation>文件不存在或无权读取。</translation>
    </message>
    <message>
        <source>This image can&apos;t be read</source>
        <translation>无法读取该图片</translation>
    </message>
    <message>
        <source>The image is too large to be shown: %1 x %2 pixels.</source>
        <translation>图片过大，无法显示：%1 x %2像素。</translation>
    </message>
    <message>
        <source>The image file is too large to be shown.</source>
        <translation>图片文件过大，无法显示。</translation>
    </message>
</context>
<context>
    <name>vemo_base::PlaybackTexts</name>
    <message>
        <source>1 gap</source>
        <translation>1处缺口</translation>
    </message>
    <message>
        <source>%1 gaps</source>
        <translation>%1处缺口</translation>
    </message>
</context>
<context>
    <name>vemo_base::PlayerTitleBar</name>
    <message>
        <source>Close (Esc)</source>
        <translation>关闭 (Esc)</translation>
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
        <translation>清除筛选</translation>
    </message>
</context>
<context>
    <name>vemo_base::SettingToolWt</name>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>vemo_base::SpanWords</name>
    <message>
        <source>%1 To %2</source>
        <translation>%1至%2</translation>
    </message>
    <message>
        <source>%1 h</source>
        <translation>%1小时</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1小时%2分</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1分钟</translation>
    </message>
    <message>
        <source>%1 min %2 s</source>
        <translation>%1分%2秒</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1秒</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1/%2</translation>
    </message>
    <message>
        <source>1 recording</source>
        <translation>1段录像</translation>
    </message>
    <message>
        <source>%1 recordings</source>
        <translation>%1段录像</translation>
    </message>
    <message>
        <source>1 channel</source>
        <translation>1个通道</translation>
    </message>
    <message>
        <source>%1 channels</source>
        <translation>%1个通道</translation>
    </message>
    <message>
        <source>Clocks went forward here, from %1 to %2.</source>
        <translation>此处时钟拨快，由%1拨至%2。</translation>
    </message>
    <message>
        <source>This hour passed twice, at %1 and at %2.</source>
        <translation>这一小时经过两次，分别为%1和%2。</translation>
    </message>
</context>
<context>
    <name>vemo_base::TableOperWtStyle</name>
    <message>
        <source>Check all shown rows</source>
        <translation>勾选所有显示的行</translation>
    </message>
</context>
<context>
    <name>vemo_base::ToastWt</name>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>%1 (%2 times)</source>
        <translation>%1（%2次）</translation>
    </message>
</context>
<context>
    <name>vemo_base::TransportBar</name>
    <message>
        <source>Play (Space)</source>
        <translation>播放 (空格)</translation>
    </message>
    <message>
        <source>Mute (M)</source>
        <translation>静音 (M)</translation>
    </message>
    <message>
        <source>Snapshot</source>
        <translation>抓图</translation>
    </message>
    <message>
        <source>10 s back (Left arrow)</source>
        <translation>后退10秒 (左方向键)</translation>
    </message>
    <message>
        <source>Frame back (comma)</source>
        <translation>上一帧 (逗号)</translation>
    </message>
    <message>
        <source>Frame on (period)</source>
        <translation>下一帧 (句号)</translation>
    </message>
    <message>
        <source>10 s on (Right arrow)</source>
        <translation>前进10秒 (右方向键)</translation>
    </message>
    <message>
        <source>Stop and go to the beginning</source>
        <translation>停止并回到开头</translation>
    </message>
    <message>
        <source>Speed ([ slower, ] faster)</source>
        <translation>速度 ([ 减慢，] 加快)</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>速度</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>音量</translation>
    </message>
    <message>
        <source>Save the shown picture (S)</source>
        <translation>保存当前画面 (S)</translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation>打开文件夹</translation>
    </message>
    <message>
        <source>Full screen (F)</source>
        <translation>全屏 (F)</translation>
    </message>
    <message>
        <source>Pause (Space)</source>
        <translation>暂停 (空格)</translation>
    </message>
    <message>
        <source>The recording has no sound</source>
        <translation>该录像没有声音</translation>
    </message>
    <message>
        <source>Sound on (M)</source>
        <translation>打开声音 (M)</translation>
    </message>
    <message>
        <source>Leave full screen (F)</source>
        <translation>退出全屏 (F)</translation>
    </message>
</context>
<context>
    <name>vemo_base::VMessageBox</name>
    <message>
        <source>No</source>
        <translation>否</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>是</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>信息</translation>
    </message>
    <message>
        <source>Please confirm</source>
        <translation>请确认</translation>
    </message>
</context>
<context>
    <name>vemo_base::ViewerBar</name>
    <message>
        <source>Previous (Left arrow)</source>
        <translation>上一个 (左方向键)</translation>
    </message>
    <message>
        <source>Next (Right arrow)</source>
        <translation>下一个 (右方向键)</translation>
    </message>
    <message>
        <source>Zoom out (-)</source>
        <translation>缩小 (-)</translation>
    </message>
    <message>
        <source>Zoom in (+)</source>
        <translation>放大 (+)</translation>
    </message>
    <message>
        <source>Fit into the window (0)</source>
        <translation>适应窗口 (0)</translation>
    </message>
    <message>
        <source>Actual size (1)</source>
        <translation>实际大小 (1)</translation>
    </message>
    <message>
        <source>Turn left (Shift+R)</source>
        <translation>向左旋转 (Shift+R)</translation>
    </message>
    <message>
        <source>Turn right (R)</source>
        <translation>向右旋转 (R)</translation>
    </message>
    <message>
        <source>Copy (Ctrl+C)</source>
        <translation>复制 (Ctrl+C)</translation>
    </message>
    <message>
        <source>Open the folder</source>
        <translation>打开文件夹</translation>
    </message>
    <message>
        <source>Full screen (F)</source>
        <translation>全屏 (F)</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1/%2</translation>
    </message>
    <message>
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
    <message>
        <source>Leave full screen (F)</source>
        <translation>退出全屏 (F)</translation>
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
        <translation>按通道和日期创建备份任务，并在没有窗口打开该数据文件夹时执行任务。

操作：
  list    列出任务，以及录像机上的内容已备份多少
  add     为每个通道和每一天创建一个任务
  run     从最早的开始，执行当天任务和错过的任务，完成后结束
  stop    让正在进行的执行结束，并保留已有内容
  export  复制某一天已完成的文件及其校验和
如果执行中有任务失败或不完整，run的退出码为8。
</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a day; days are written as 2026-01-10.</source>
        <translation>“%1”不是日期；日期的写法如2026-01-10。</translation>
    </message>
    <message>
        <source>--%1 takes a number from 1 to %2.</source>
        <translation>--%1的取值为1到%2之间的数字。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a span of the day; spans are written as 08:00-12:00.</source>
        <translation>“%1”不是一天中的时段；时段的写法如08:00-12:00。</translation>
    </message>
    <message>
        <source>The spans of --segments overlap at %1; an end takes its whole minute in.</source>
        <translation>--segments的时段在%1处重叠；结束时刻包含其整分钟。</translation>
    </message>
    <message>
        <source>At most %1 spans a day.</source>
        <translation>每天最多%1个时段。</translation>
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
        <translation>处理本机保存的录像或抓图。

操作（写在“recordings”或“snapshots”之后）：
  list     列出每个文件及其通道和时间，包括已损坏的文件
  save-as  将文件复制到文件夹，以通道和时间命名
  delete   删除文件（有回收站时移入回收站），并清除其记录
  rescan   查找未经客户端添加或移除的文件，录像和抓图都会查找
list --json每行输出一个对象：path、channel、begin和end（抓图为captured）、
bytes、ok；ok为false时，problem说明原因；文件未注明时间段时，
guessed为true。delete和rescan要求该数据文件夹的窗口已关闭。如果有
文件无法保存或删除，或有文件夹无法查找，退出码为8。
</translation>
    </message>
    <message>
        <source>The end, %1, is not after the begin, %2.</source>
        <translation>结束时间%1不晚于开始时间%2。</translation>
    </message>
    <message>
        <source>Give either --all or what to choose by: --begin, --end, --channel.</source>
        <translation>请指定--all，或指定选择条件：--begin、--end、--channel。</translation>
    </message>
    <message>
        <source>--yes is missing; list tells what would be deleted.</source>
        <translation>缺少--yes；list可列出将要删除的内容。</translation>
    </message>
    <message>
        <source>Downloads what a recorder has of a span of time, as MP4.</source>
        <translation>将录像机上某一时间段的录像下载为MP4。</translation>
    </message>
    <message>
        <source>Lists the recordings of a channel in a span of time.</source>
        <translation>列出某一通道在某一时间段内的录像。</translation>
    </message>
    <message>
        <source>See vemo_client %1 --help.</source>
        <translation>请参阅vemo_client %1 --help。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is one argument too many.</source>
        <translation>“%1”是多余的参数。</translation>
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
        <translation>在没有窗口打开数据文件夹时，处理其中保存的下载任务。

操作：
  list    列出所有任务
  add     为每个通道添加一个时间段或一段录像的下载
  pause   使等待中的任务暂不开始
  resume  使已暂停的任务重新等待
  cancel  移除等待中和已暂停的任务
  retry   使失败的任务重新等待
  clear   从列表中清除已完成和失败的任务；文件保留
  run     执行等待中的任务，每次五个，全部完成后结束
如果执行中有任务失败或不完整，run的退出码为8。密码保存在桌面的
密钥环或加密文件中；VEMO_SECRETS_PASSWORD为该文件设置密码，
VEMO_KEYRING=off表示不使用密钥环。
</translation>
    </message>
    <message>
        <source>--ca is not kept for stored recorders; use --pin.</source>
        <translation>已保存的录像机不会保留--ca；请使用--pin。</translation>
    </message>
    <message>
        <source>The name of a recording has at most %1 characters.</source>
        <translation>录像名称最多%1个字符。</translation>
    </message>
    <message>
        <source>A recording belongs to one channel; give one --channel with --file.</source>
        <translation>一段录像只属于一个通道；使用--file时请只指定一个--channel。</translation>
    </message>
    <message>
        <source>This name of a recording does not tell its span; give --begin and --end.</source>
        <translation>该录像名称未包含时间段；请指定--begin和--end。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not the id of a task.</source>
        <translation>“%1”不是任务编号。</translation>
    </message>
    <message>
        <source>Give either --id or --all.</source>
        <translation>请指定--id或--all。</translation>
    </message>
    <message>
        <source>less than 1 GiB is free on the disk of the file, so the download was not begun.</source>
        <translation>文件所在磁盘的可用空间不足1 GiB，下载未开始。</translation>
    </message>
    <message>
        <source>the download could not be begun.</source>
        <translation>下载无法开始。</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1至%2</translation>
    </message>
    <message>
        <source> and %1 more</source>
        <translation> 及另外%1段</translation>
    </message>
    <message>
        <source>the recorder has footage of %1%2 that did not arrive; what arrived is in %3.</source>
        <translation>录像机上%1%2的录像未能到达；已到达的部分保存在%3。</translation>
    </message>
    <message>
        <source>the stream broke off at %1; what arrived until then is in %2.</source>
        <translation>码流在%1处中断；此前已到达的部分保存在%2。</translation>
    </message>
    <message>
        <source>the stream broke off before the first picture.</source>
        <translation>码流在第一帧画面之前中断。</translation>
    </message>
    <message>
        <source>the recorder lists recordings for the span, but sent no picture of them.</source>
        <translation>录像机列出了该时间段的录像，但未发送任何画面。</translation>
    </message>
    <message>
        <source>the recorder sent nothing for %1 to %2.</source>
        <translation>录像机未发送%1至%2的任何内容。</translation>
    </message>
    <message>
        <source>%1 can&apos;t be written.</source>
        <translation>无法写入%1。</translation>
    </message>
    <message>
        <source>the disk is full.</source>
        <translation>磁盘已满。</translation>
    </message>
    <message>
        <source>no recording from %1 to %2.</source>
        <translation>%1至%2没有录像。</translation>
    </message>
    <message>
        <source>the recorder refused the login.</source>
        <translation>录像机拒绝登录。</translation>
    </message>
    <message>
        <source>the recorder serves no further stream at the moment.</source>
        <translation>录像机目前无法再提供码流。</translation>
    </message>
    <message>
        <source>the stream could not be opened.</source>
        <translation>无法打开码流。</translation>
    </message>
    <message>
        <source>the download failed.</source>
        <translation>下载失败。</translation>
    </message>
    <message>
        <source>Wrong login</source>
        <translation>登录信息有误</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>已锁定</translation>
    </message>
    <message>
        <source>Not activated</source>
        <translation>未激活</translation>
    </message>
    <message>
        <source>Connection limit</source>
        <translation>连接数已满</translation>
    </message>
    <message>
        <source>Certificate</source>
        <translation>证书</translation>
    </message>
    <message>
        <source>Offline</source>
        <translation>离线</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>失败</translation>
    </message>
    <message>
        <source>The recorder refused the login</source>
        <translation>录像机拒绝登录</translation>
    </message>
    <message>
        <source>The account is locked</source>
        <translation>账户已锁定</translation>
    </message>
    <message>
        <source>The recorder is not activated</source>
        <translation>录像机未激活</translation>
    </message>
    <message>
        <source>The recorder takes no more connections</source>
        <translation>录像机不再接受更多连接</translation>
    </message>
    <message>
        <source>The certificate is not trusted</source>
        <translation>证书不受信任</translation>
    </message>
    <message>
        <source>The recorder can&apos;t be reached</source>
        <translation>无法连接录像机</translation>
    </message>
    <message>
        <source>The recorder does not answer</source>
        <translation>录像机没有应答</translation>
    </message>
    <message>
        <source>The connection broke off</source>
        <translation>连接已中断</translation>
    </message>
    <message>
        <source>No recorder answers at this address</source>
        <translation>该地址没有录像机应答</translation>
    </message>
    <message>
        <source>The recorder speaks another language</source>
        <translation>录像机使用其他协议</translation>
    </message>
    <message>
        <source>The answer can&apos;t be read</source>
        <translation>无法读取应答</translation>
    </message>
    <message>
        <source>The login failed</source>
        <translation>登录失败</translation>
    </message>
    <message>
        <source>Check user and password. Many recorders lock the account after a few wrong tries.</source>
        <translation>请检查用户名和密码。许多录像机在几次输错后会锁定账户。</translation>
    </message>
    <message>
        <source>Wait until the recorder unlocks it, often 30 min, then try again.</source>
        <translation>请等待录像机解锁（通常为30分钟），然后重试。</translation>
    </message>
    <message>
        <source>Give it its first password on its own screen or web page, then try again.</source>
        <translation>请在录像机本机屏幕或网页上设置初始密码，然后重试。</translation>
    </message>
    <message>
        <source>Close other programs that are connected to it. It is tried again by itself.</source>
        <translation>请关闭连接到该录像机的其他程序。稍后会自动重试。</translation>
    </message>
    <message>
        <source>Nothing was sent to it. Check the address, or ask who runs the recorder.</source>
        <translation>尚未向其发送任何内容。请检查地址，或询问录像机的管理者。</translation>
    </message>
    <message>
        <source>Check address, cable and power. It is tried again by itself.</source>
        <translation>请检查地址、网线和电源。稍后会自动重试。</translation>
    </message>
    <message>
        <source>Check address and port, and whether ONVIF is switched on in the recorder&apos;s settings.</source>
        <translation>请检查地址和端口，以及录像机设置中是否已启用ONVIF。</translation>
    </message>
    <message>
        <source>Try again. If it stays so, the recorder&apos;s own log tells more.</source>
        <translation>请重试。如果问题依旧，录像机自身的日志会提供更多信息。</translation>
    </message>
    <message>
        <source>The recorder shows another key than the trusted one</source>
        <translation>录像机出示的密钥与受信任的密钥不同</translation>
    </message>
    <message>
        <source>Its certificate was renewed, or something stands between you and it. Nothing was sent to it.</source>
        <translation>可能是证书已更新，也可能有人介入了您与录像机之间的连接。尚未向其发送任何内容。</translation>
    </message>
    <message>
        <source>SHA-256 of the new key:</source>
        <translation>新密钥的SHA-256：</translation>
    </message>
    <message>
        <source>The recorder&apos;s key is not known yet</source>
        <translation>录像机的密钥尚未登记</translation>
    </message>
    <message>
        <source>SHA-256 of the key:</source>
        <translation>密钥的SHA-256：</translation>
    </message>
    <message>
        <source>The address carries a login. Put user and password into their own fields.</source>
        <translation>地址中包含登录信息。请将用户名和密码填入各自的输入框。</translation>
    </message>
    <message>
        <source>The address names no host. Example: 192.168.1.20</source>
        <translation>地址中没有主机。示例：192.168.1.20</translation>
    </message>
    <message>
        <source>The port must be a number from 1 to 65535.</source>
        <translation>端口必须是1到65535之间的数字。</translation>
    </message>
    <message>
        <source>An address of numbers has four of them from 0 to 255. Example: 192.168.1.20</source>
        <translation>数字地址由四个0到255之间的数字组成。示例：192.168.1.20</translation>
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
        <translation>管理可以登录窗口的用户，供操作系统中拥有该数据文件夹的人使用；
与其他命令一样，不要求登录。修改时必须关闭窗口。

操作（写在“user”之后）：
  add       添加用户；第一个用户必须是管理员。无法再打开的账户会以
            其他名称保留，由新的管理员重新开始
  list      列出用户及其权限；使用--json时每行输出一个对象：name、
            administrator、powers、enabled、last_login
  password  设置新密码，忘记密码时可借此重新登录
  remove    移除用户
</translation>
    </message>
    <message>
        <source>Give either --administrator or --powers.</source>
        <translation>请指定--administrator或--powers。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no power; there are: %2.</source>
        <translation>“%1”不是权限；可用的权限有：%2。</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1，%2</translation>
    </message>
    <message>
        <source>Recorder</source>
        <translation>录像机</translation>
    </message>
    <message>
        <source>Log in again</source>
        <translation>重新登录</translation>
    </message>
    <message>
        <source>No.</source>
        <translation>序号</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Recordings</source>
        <translation>录像</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>通道</translation>
    </message>
    <message>
        <source>Change...</source>
        <translation>修改...</translation>
    </message>
    <message>
        <source>Live view alone</source>
        <translation>仅实时预览</translation>
    </message>
    <message>
        <source>Live view, playback and backup</source>
        <translation>实时预览、回放和备份</translation>
    </message>
    <message>
        <source>Live view and playback</source>
        <translation>实时预览和回放</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>Find on the network...</source>
        <translation>在网络中查找...</translation>
    </message>
    <message>
        <source>Add by address...</source>
        <translation>按地址添加...</translation>
    </message>
    <message>
        <source>Filter by name, address, group or channel</source>
        <translation>按名称、地址、分组或通道筛选</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>启用</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>停用</translation>
    </message>
    <message>
        <source>Group...</source>
        <translation>分组...</translation>
    </message>
    <message>
        <source>Remove...</source>
        <translation>移除...</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>正在搜索...</translation>
    </message>
    <message>
        <source>Searching... 1 recorder has answered.</source>
        <translation>正在搜索...已有1台录像机应答。</translation>
    </message>
    <message>
        <source>Searching... %1 recorders have answered.</source>
        <translation>正在搜索...已有%1台录像机应答。</translation>
    </message>
    <message>
        <source>No recorder has answered.</source>
        <translation>没有录像机应答。</translation>
    </message>
    <message>
        <source>1 recorder has answered.</source>
        <translation>已有1台录像机应答。</translation>
    </message>
    <message>
        <source>%1 recorders have answered.</source>
        <translation>已有%1台录像机应答。</translation>
    </message>
    <message>
        <source>Compare the key with the one that the recorder shows. Nothing was sent to it so far.</source>
        <translation>请将此密钥与录像机显示的密钥进行比对。目前尚未向其发送任何内容。</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>SHA-256 of the trusted key:</source>
        <translation>受信任密钥的SHA-256：</translation>
    </message>
    <message>
        <source>The address carries a password, which would be stored readable. Put it into its own field.</source>
        <translation>地址中包含密码，会以明文保存。请将其填入密码输入框。</translation>
    </message>
    <message>
        <source>There is an @ behind the host. Put user and password into their own fields, or write it as %40.</source>
        <translation>主机后面有@。请将用户名和密码填入各自的输入框，或将其写为%40。</translation>
    </message>
</context>
<context>
    <name>vemo_client::AddressWatch</name>
    <message>
        <source>%1 answers at %2 now</source>
        <translation>%1现在的地址为%2</translation>
    </message>
    <message>
        <source>It can&apos;t be reached at %1 any more. Use the new address?</source>
        <translation>通过%1已无法连接。是否使用新地址？</translation>
    </message>
    <message>
        <source>Use the new address</source>
        <translation>使用新地址</translation>
    </message>
</context>
<context>
    <name>vemo_client::AdministratorPage</name>
    <message>
        <source>Password</source>
        <translation>密码</translation>
    </message>
    <message>
        <source>Repeat the password</source>
        <translation>重复密码</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>主题</translation>
    </message>
    <message>
        <source>Create the administrator</source>
        <translation>创建管理员</translation>
    </message>
    <message>
        <source>This account manages users, recorders and storage. It is kept on this computer only.</source>
        <translation>该账户管理用户、录像机和存储，仅保存在本机。</translation>
    </message>
    <message>
        <source>User name</source>
        <translation>用户名</translation>
    </message>
    <message>
        <source>%1 characters or more</source>
        <translation>至少%1个字符</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>深色</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>浅色</translation>
    </message>
    <message>
        <source>System</source>
        <translation>跟随系统</translation>
    </message>
    <message>
        <source>Create and continue</source>
        <translation>创建并继续</translation>
    </message>
    <message>
        <source>A lost password cannot be recovered. Another administrator can set a new one.</source>
        <translation>密码丢失后无法找回，但可由其他管理员设置新密码。</translation>
    </message>
    <message>
        <source>The two passwords differ</source>
        <translation>两次输入的密码不一致</translation>
    </message>
</context>
<context>
    <name>vemo_client::AuthForm</name>
    <message>
        <source>Step %1 of %2</source>
        <translation>第%1步，共%2步</translation>
    </message>
</context>
<context>
    <name>vemo_client::AuthWt</name>
    <message>
        <source>Version %1</source>
        <translation>版本%1</translation>
    </message>
    <message>
        <source>Every hour that matters,
safe on your own disks.</source>
        <translation>重要的每一刻，
安存于自己的磁盘。</translation>
    </message>
    <message>
        <source>Live view, playback, downloads and planned backup of your network recorders.</source>
        <translation>网络录像机的实时预览、回放、下载和计划备份。</translation>
    </message>
</context>
<context>
    <name>vemo_client::BackupListing</name>
    <message>
        <source>ID</source>
        <translation>编号</translation>
    </message>
    <message>
        <source>DAY</source>
        <translation>日期</translation>
    </message>
    <message>
        <source>CHANNEL</source>
        <translation>通道</translation>
    </message>
    <message>
        <source>STATE</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>SAFE</source>
        <translation>已备份</translation>
    </message>
    <message>
        <source>the recorder was not asked yet</source>
        <translation>尚未查询录像机</translation>
    </message>
    <message>
        <source>nothing recorded</source>
        <translation>无录像</translation>
    </message>
</context>
<context>
    <name>vemo_client::BackupRun</name>
    <message>
        <source>Failed to export file:%1</source>
        <translation>导出文件失败：%1</translation>
    </message>
    <message>
        <source>The folder for backups, %1, is not there or can&apos;t be written.</source>
        <translation>备份文件夹%1不存在或无法写入。</translation>
    </message>
    <message>
        <source>The folder %1 is not there or can&apos;t be written.</source>
        <translation>文件夹%1不存在或无法写入。</translation>
    </message>
    <message>
        <source>The disk space is insufficient, total file size:%1M, disk free space:%2M, disk name:%3</source>
        <translation>磁盘空间不足，文件总大小：%1M，磁盘可用空间：%2M，磁盘名称：%3</translation>
    </message>
    <message>
        <source>%1 tasks failed; see vemo_client backup list.</source>
        <translation>%1个任务失败；请参阅vemo_client backup list。</translation>
    </message>
    <message>
        <source>Stopped; what had arrived is kept, and the rest is fetched by the next run.</source>
        <translation>已停止；已到达的内容已保留，其余部分将在下次执行时获取。</translation>
    </message>
    <message>
        <source>Export backup files finished, files total count:%1, success count:%2, failure count:%3</source>
        <translation>备份文件导出完成，文件总数：%1，成功：%2，失败：%3</translation>
    </message>
    <message>
        <source>Interrupted; what had arrived is kept, and the rest is fetched by the next run.</source>
        <translation>已中断；已到达的内容已保留，其余部分将在下次执行时获取。</translation>
    </message>
</context>
<context>
    <name>vemo_client::BackupVerb</name>
    <message>
        <source>Interrupted.</source>
        <translation>已中断。</translation>
    </message>
    <message>
        <source>No run of the backups is at work in this data folder.</source>
        <translation>该数据文件夹中没有正在进行的备份。</translation>
    </message>
    <message>
        <source>No task was added: a day has at most %1.</source>
        <translation>未添加任务：每天最多%1个。</translation>
    </message>
    <message>
        <source>The database could not be written.</source>
        <translation>无法写入数据库。</translation>
    </message>
    <message>
        <source>%1 tasks are planned already.</source>
        <translation>已有%1个任务在计划中。</translation>
    </message>
</context>
<context>
    <name>vemo_client::BlockedPage</name>
    <message>
        <source>The accounts can&apos;t be opened</source>
        <translation>无法打开账户</translation>
    </message>
    <message>
        <source>Nobody can log in until that is mended. Recordings and settings are untouched.</source>
        <translation>修复之前任何人都无法登录。录像和设置未受影响。</translation>
    </message>
    <message>
        <source>Whoever owns this computer account can make a new administrator in a terminal; the files that can&apos;t be opened are kept under another name:
vemo_client user add --name NAME --password-file FILE --administrator</source>
        <translation>拥有此计算机账户的人可以在终端中创建新的管理员；无法打开的文件会以其他名称保留：
vemo_client user add --name NAME --password-file FILE --administrator</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>vemo_client::CertificateDialog</name>
    <message>
        <source>Is this the recorder?</source>
        <translation>这是您的录像机吗？</translation>
    </message>
    <message>
        <source>%1 shows another key than the one that was trusted. Nothing was sent to it.</source>
        <translation>%1出示的密钥与之前信任的密钥不同。尚未向其发送任何内容。</translation>
    </message>
    <message>
        <source>%1 is reached by TLS, and its key is not known yet. Nothing was sent to it.</source>
        <translation>%1通过TLS连接，其密钥尚未登记。尚未向其发送任何内容。</translation>
    </message>
    <message>
        <source>Its certificate was renewed, or something stands between you and it</source>
        <translation>可能是证书已更新，也可能有人介入了您与录像机之间的连接</translation>
    </message>
    <message>
        <source>Compare the key with the one that the recorder shows on its own screen or web page</source>
        <translation>请将此密钥与录像机本机屏幕或网页上显示的密钥进行比对</translation>
    </message>
    <message>
        <source>Trusted key (SHA-256)</source>
        <translation>受信任的密钥 (SHA-256)</translation>
    </message>
    <message>
        <source>New key (SHA-256)</source>
        <translation>新密钥 (SHA-256)</translation>
    </message>
    <message>
        <source>Key (SHA-256)</source>
        <translation>密钥 (SHA-256)</translation>
    </message>
    <message>
        <source>Don&apos;t trust it</source>
        <translation>不信任</translation>
    </message>
    <message>
        <source>Trust the new key</source>
        <translation>信任新密钥</translation>
    </message>
    <message>
        <source>Trust this key</source>
        <translation>信任此密钥</translation>
    </message>
</context>
<context>
    <name>vemo_client::CertificateWords</name>
    <message>
        <source>itself</source>
        <translation>自身</translation>
    </message>
    <message>
        <source>Issued for</source>
        <translation>颁发给</translation>
    </message>
    <message>
        <source>nobody that it names</source>
        <translation>未注明</translation>
    </message>
    <message>
        <source>Names</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Issued by</source>
        <translation>颁发者</translation>
    </message>
    <message>
        <source>Valid</source>
        <translation>有效期</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1至%2</translation>
    </message>
    <message>
        <source>It has run out on %1.</source>
        <translation>已于%1过期。</translation>
    </message>
    <message>
        <source>It is not valid before %1. Are the clocks right?</source>
        <translation>在%1之前无效。时钟是否准确？</translation>
    </message>
    <message>
        <source>It is not issued for %1.</source>
        <translation>不是颁发给%1的。</translation>
    </message>
    <message>
        <source>Nobody but the recorder itself vouches for it.</source>
        <translation>仅由录像机自身签发，没有其他担保。</translation>
    </message>
</context>
<context>
    <name>vemo_client::ChannelDayWords</name>
    <message>
        <source>Searching...</source>
        <translation>正在搜索...</translation>
    </message>
    <message>
        <source>No recording on this day</source>
        <translation>当天没有录像</translation>
    </message>
    <message>
        <source>No recording</source>
        <translation>无录像</translation>
    </message>
    <message>
        <source>Alarm</source>
        <translation>报警</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>录像</translation>
    </message>
</context>
<context>
    <name>vemo_client::ChannelDownload</name>
    <message>
        <source>%1: interrupted; what had arrived is kept in %2.</source>
        <translation>%1：已中断；已到达的内容保存在%2。</translation>
    </message>
    <message>
        <source>%1: interrupted before anything had arrived.</source>
        <translation>%1：在任何内容到达之前已中断。</translation>
    </message>
    <message>
        <source>%1: no recording from %2 to %3.</source>
        <translation>%1：%2至%3没有录像。</translation>
    </message>
</context>
<context>
    <name>vemo_client::ChannelNameWt</name>
    <message>
        <source>Channel %1</source>
        <translation>通道%1</translation>
    </message>
    <message>
        <source>Name of channel %1</source>
        <translation>通道%1的名称</translation>
    </message>
    <message>
        <source>The recorder&apos;s own name: %1</source>
        <translation>录像机中的名称：%1</translation>
    </message>
</context>
<context>
    <name>vemo_client::CliBackupParser</name>
    <message>
        <source>What to do with the backups is missing.</source>
        <translation>未指定备份操作。</translation>
    </message>
</context>
<context>
    <name>vemo_client::CliLocalParser</name>
    <message>
        <source>See vemo_client local --help.</source>
        <translation>请参阅vemo_client local --help。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither recordings nor snapshots.</source>
        <translation>“%1”既不是recordings也不是snapshots。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no action of local.</source>
        <translation>“%1”不是local的操作。</translation>
    </message>
    <message>
        <source>What to do with the local files is missing.</source>
        <translation>未指定本地文件的操作。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is one argument too many.</source>
        <translation>“%1”是多余的参数。</translation>
    </message>
</context>
<context>
    <name>vemo_client::CliParser</name>
    <message>
        <source>Shows this help.</source>
        <translation>显示此帮助。</translation>
    </message>
    <message>
        <source>Shows the version.</source>
        <translation>显示版本。</translation>
    </message>
    <message>
        <source>Keeps settings and data below &lt;dir&gt;.</source>
        <translation>将设置和数据保存在&lt;dir&gt;下。</translation>
    </message>
    <message>
        <source>dir</source>
        <translation>dir</translation>
    </message>
    <message>
        <source>Starts the window in this theme: dark or light.</source>
        <translation>以此主题启动窗口：dark（深色）或light（浅色）。</translation>
    </message>
    <message>
        <source>name</source>
        <translation>name</translation>
    </message>
    <message>
        <source>Address of the recorder: its ONVIF device service (http, https; the path may be left out), or a replay address (rtsp, rtsps; {channel} stands for the channel&apos;s number).</source>
        <translation>录像机地址：ONVIF设备服务地址（http、https，路径可省略），或回放地址（rtsp、rtsps；{channel}代表通道号）。</translation>
    </message>
    <message>
        <source>url</source>
        <translation>url</translation>
    </message>
    <message>
        <source>User on the recorder.</source>
        <translation>录像机上的用户名。</translation>
    </message>
    <message>
        <source>File whose first line is the password. Without it, the environment variable VEMO_PASSWORD.</source>
        <translation>首行为密码的文件。未指定时使用环境变量VEMO_PASSWORD。</translation>
    </message>
    <message>
        <source>file</source>
        <translation>file</translation>
    </message>
    <message>
        <source>Channel number from 1; several: 1,2,3.</source>
        <translation>通道号，从1开始；多个写作1,2,3。</translation>
    </message>
    <message>
        <source>n</source>
        <translation>n</translation>
    </message>
    <message>
        <source>Begin, as 2026-01-10T08:00:00; local time unless an offset follows.</source>
        <translation>开始时间，如2026-01-10T08:00:00；未附时差时为本地时间。</translation>
    </message>
    <message>
        <source>time</source>
        <translation>time</translation>
    </message>
    <message>
        <source>End, likewise.</source>
        <translation>结束时间，写法同上。</translation>
    </message>
    <message>
        <source>Accepts only the recorder whose public key has this SHA-256.</source>
        <translation>仅接受公钥SHA-256与此相符的录像机。</translation>
    </message>
    <message>
        <source>hex</source>
        <translation>hex</translation>
    </message>
    <message>
        <source>PEM file of certificates to trust beside the system&apos;s own.</source>
        <translation>除系统证书外另行信任的证书的PEM文件。</translation>
    </message>
    <message>
        <source>Name of one recording, as search tells it; --begin and --end are only needed when the name has no span.</source>
        <translation>一段录像的名称，由search列出；仅当名称中不含时间段时才需要--begin和--end。</translation>
    </message>
    <message>
        <source>Task to act on, as list tells it; several times for several.</source>
        <translation>要操作的任务，由list列出；可多次使用以指定多个任务。</translation>
    </message>
    <message>
        <source>id</source>
        <translation>id</translation>
    </message>
    <message>
        <source>Acts on every task for which it makes sense.</source>
        <translation>对所有适用的任务执行操作。</translation>
    </message>
    <message>
        <source>Ends without waiting for the next try of failed tasks.</source>
        <translation>不等待失败任务的下次重试即结束。</translation>
    </message>
    <message>
        <source>Day, as 2026-01-10, today or yesterday.</source>
        <translation>日期，如2026-01-10，或today、yesterday。</translation>
    </message>
    <message>
        <source>day</source>
        <translation>day</translation>
    </message>
    <message>
        <source>For so many days from that day on; 1 when left out.</source>
        <translation>从该日起的天数；省略时为1。</translation>
    </message>
    <message>
        <source>Times of day to back up, as 08:00-12:00,13:00-18:00; an end takes its whole minute in. Without it, the whole day.</source>
        <translation>一天中要备份的时段，如08:00-12:00,13:00-18:00；结束时刻包含其整分钟。未指定时为全天。</translation>
    </message>
    <message>
        <source>times</source>
        <translation>times</translation>
    </message>
    <message>
        <source>Gives a task up in this run after so many failures; 3 when left out.</source>
        <translation>任务失败达到此次数后，本次执行不再重试；省略时为3。</translation>
    </message>
    <message>
        <source>Folder to copy the files into; it must be there.</source>
        <translation>文件复制到的文件夹；必须已存在。</translation>
    </message>
    <message>
        <source>folder</source>
        <translation>folder</translation>
    </message>
    <message>
        <source>Writes one JSON object a line.</source>
        <translation>每行输出一个JSON对象。</translation>
    </message>
    <message>
        <source>Writes diagnostics to the standard error stream.</source>
        <translation>将诊断信息写入标准错误流。</translation>
    </message>
    <message>
        <source>File to write, or folder; with several channels a folder. Files there are never overwritten.</source>
        <translation>要写入的文件或文件夹；多个通道时须为文件夹。已有文件绝不会被覆盖。</translation>
    </message>
    <message>
        <source>path</source>
        <translation>path</translation>
    </message>
    <message>
        <source>What to do without a window.</source>
        <translation>无窗口时要执行的操作。</translation>
    </message>
    <message>
        <source>See vemo_client --help.</source>
        <translation>请参阅vemo_client --help。</translation>
    </message>
    <message>
        <source>--theme is dark or light.</source>
        <translation>--theme的取值为dark或light。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a verb.</source>
        <translation>“%1”不是命令。</translation>
    </message>
    <message>
        <source>Exit codes: 0 done, 1 failed, 2 wrong use, 3 login refused, 4 recorder not reachable, 5 the recorder&apos;s limit is
reached, 6 disk full or not writable, 7 no recording in the span, 8 incomplete (a playable part is there),
130 interrupted (what had arrived is kept).
</source>
        <translation>退出码：0 完成，1 失败，2 用法错误，3 登录被拒绝，4 无法连接录像机，5 达到录像机的
上限，6 磁盘已满或不可写，7 该时间段无录像，8 不完整（已有可播放的部分），
130 已中断（已到达的内容已保留）。
</translation>
    </message>
    <message>
        <source>--%1 is missing.</source>
        <translation>缺少--%1。</translation>
    </message>
    <message>
        <source>The address of the recorder must be an http, https, rtsp or rtsps address with a host.</source>
        <translation>录像机地址必须是含主机的http、https、rtsp或rtsps地址。</translation>
    </message>
    <message>
        <source>The address of the recorder carries a login; give it by --user and --password-file.</source>
        <translation>录像机地址中包含登录信息；请通过--user和--password-file提供。</translation>
    </message>
    <message>
        <source>The password file %1 can&apos;t be read: %2.</source>
        <translation>无法读取密码文件%1：%2。</translation>
    </message>
    <message>
        <source>The first line of the password file %1 is longer than %2 bytes.</source>
        <translation>密码文件%1的首行超过%2字节。</translation>
    </message>
    <message>
        <source>The password is missing: give --password-file or set VEMO_PASSWORD.</source>
        <translation>缺少密码：请指定--password-file或设置VEMO_PASSWORD。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a channel; channels are numbers from 1 to %2.</source>
        <translation>“%1”不是通道；通道为1到%2之间的数字。</translation>
    </message>
    <message>
        <source>At most %1 channels at once.</source>
        <translation>一次最多%1个通道。</translation>
    </message>
    <message>
        <source>--pin takes a SHA-256: 64 hexadecimal digits.</source>
        <translation>--pin的取值为SHA-256：64位十六进制数字。</translation>
    </message>
    <message>
        <source>The certificate file %1 can&apos;t be read: %2.</source>
        <translation>无法读取证书文件%1：%2。</translation>
    </message>
    <message>
        <source>The file %1 holds no PEM certificate.</source>
        <translation>文件%1中没有PEM证书。</translation>
    </message>
    <message>
        <source>See vemo_client %1 --help.</source>
        <translation>请参阅vemo_client %1 --help。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no action of %2.</source>
        <translation>“%1”不是%2的操作。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is one argument too many.</source>
        <translation>“%1”是多余的参数。</translation>
    </message>
    <message>
        <source>Keeps what is at least this grave in the program&apos;s log: debug, info, warning or error; info when left out.</source>
        <translation>程序日志中保留达到此级别的内容：debug、info、warning或error；省略时为info。</translation>
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
        <translation>Vemo，网络录像机客户端。不带命令时打开窗口。

命令：
  search    列出某一通道在某一时间段内的录像
  download  将某一时间段的录像下载为MP4
  queue     在没有窗口打开时处理已保存的下载任务
  backup    创建整天的备份任务，并在没有窗口打开时执行
  local     列出、保存和删除本机上的录像和抓图
  user      添加和列出可以登录窗口的用户，并设置其密码
各命令的选项：vemo_client &lt;verb&gt; --help
</translation>
    </message>
    <message>
        <source>--log-level is debug, info, warning or error.</source>
        <translation>--log-level的取值为debug、info、warning或error。</translation>
    </message>
</context>
<context>
    <name>vemo_client::CliQueueParser</name>
    <message>
        <source>What to do with the queue is missing.</source>
        <translation>未指定队列操作。</translation>
    </message>
</context>
<context>
    <name>vemo_client::CliUserParser</name>
    <message>
        <source>See vemo_client user --help.</source>
        <translation>请参阅vemo_client user --help。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no action of user.</source>
        <translation>“%1”不是user的操作。</translation>
    </message>
    <message>
        <source>What to do with the users is missing.</source>
        <translation>未指定用户操作。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is one argument too many.</source>
        <translation>“%1”是多余的参数。</translation>
    </message>
</context>
<context>
    <name>vemo_client::DayAxisWt</name>
    <message>
        <source>Recordings of the day</source>
        <translation>当天的录像</translation>
    </message>
    <message>
        <source>%1: %2 of %3 recorded</source>
        <translation>%1：%3中已录制%2</translation>
    </message>
    <message>
        <source>Zoom in (plus)</source>
        <translation>放大 (加号)</translation>
    </message>
    <message>
        <source>Zoom out (minus)</source>
        <translation>缩小 (减号)</translation>
    </message>
    <message>
        <source>Show the whole day</source>
        <translation>显示全天</translation>
    </message>
</context>
<context>
    <name>vemo_client::DecodeWorker</name>
    <message>
        <source>The library that decodes video is missing. Installing the client anew brings it back.</source>
        <translation>缺少视频解码库。重新安装客户端即可恢复。</translation>
    </message>
    <message>
        <source>This channel sends no pictures that the client can show.</source>
        <translation>该通道未发送客户端能够显示的画面。</translation>
    </message>
    <message>
        <source>Video of this kind can&apos;t be shown on this computer.</source>
        <translation>本机无法显示此类视频。</translation>
    </message>
    <message>
        <source>The pictures of this channel are damaged and can&apos;t be decoded.</source>
        <translation>该通道的画面已损坏，无法解码。</translation>
    </message>
    <message>
        <source>This channel has not sent a complete picture yet.</source>
        <translation>该通道尚未发送完整的画面。</translation>
    </message>
</context>
<context>
    <name>vemo_client::DeviceDetailsWt</name>
    <message>
        <source>The recorder is disabled</source>
        <translation>录像机已停用</translation>
    </message>
    <message>
        <source>It is not logged in. Its channels can&apos;t be watched, played, downloaded or backed up.</source>
        <translation>未登录。无法预览、回放、下载或备份其通道。</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>启用</translation>
    </message>
    <message>
        <source>Check the key...</source>
        <translation>检查密钥...</translation>
    </message>
    <message>
        <source>Type the login...</source>
        <translation>输入登录信息...</translation>
    </message>
    <message>
        <source>State</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>地址</translation>
    </message>
    <message>
        <source>User name</source>
        <translation>用户名</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>分组</translation>
    </message>
    <message>
        <source>Used for</source>
        <translation>用途</translation>
    </message>
    <message>
        <source>Maker</source>
        <translation>厂商</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>型号</translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation>固件</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>序列号</translation>
    </message>
    <message>
        <source>Last seen</source>
        <translation>最后在线</translation>
    </message>
    <message>
        <source>Its channels are known once it was logged in.</source>
        <translation>登录成功后才能获知其通道。</translation>
    </message>
    <message>
        <source>1 channel</source>
        <translation>1个通道</translation>
    </message>
    <message>
        <source>%1 channels</source>
        <translation>%1个通道</translation>
    </message>
    <message>
        <source>No</source>
        <translation>否</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>是</translation>
    </message>
</context>
<context>
    <name>vemo_client::DeviceFacts</name>
    <message>
        <source>Now</source>
        <translation>现在</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>从未</translation>
    </message>
</context>
<context>
    <name>vemo_client::DeviceListBt</name>
    <message>
        <source>Export or import the list</source>
        <translation>导出或导入列表</translation>
    </message>
    <message>
        <source>Export the list...</source>
        <translation>导出列表...</translation>
    </message>
    <message>
        <source>Import a list...</source>
        <translation>导入列表...</translation>
    </message>
    <message>
        <source>Export the list of recorders</source>
        <translation>导出录像机列表</translation>
    </message>
    <message>
        <source>recorders</source>
        <translation>录像机</translation>
    </message>
    <message>
        <source>CSV files (*.csv)</source>
        <translation>CSV文件 (*.csv)</translation>
    </message>
    <message>
        <source>Import a list of recorders</source>
        <translation>导入录像机列表</translation>
    </message>
    <message>
        <source>The list of recorders could not be written</source>
        <translation>无法写入录像机列表</translation>
    </message>
    <message>
        <source>1 recorder was exported</source>
        <translation>已导出1台录像机</translation>
    </message>
    <message>
        <source>%1 recorders were exported</source>
        <translation>已导出%1台录像机</translation>
    </message>
    <message>
        <source>%1 holds no passwords.</source>
        <translation>%1中不含密码。</translation>
    </message>
    <message>
        <source>The disk does not answer.</source>
        <translation>磁盘没有应答。</translation>
    </message>
    <message>
        <source>The list of recorders could not be read</source>
        <translation>无法读取录像机列表</translation>
    </message>
    <message>
        <source>1 recorder was added</source>
        <translation>已添加1台录像机</translation>
    </message>
    <message>
        <source>%1 recorders were added</source>
        <translation>已添加%1台录像机</translation>
    </message>
    <message>
        <source>1 was known already.</source>
        <translation>1台已存在。</translation>
    </message>
    <message>
        <source>%1 were known already.</source>
        <translation>%1台已存在。</translation>
    </message>
    <message>
        <source>Their passwords are asked for in the list.</source>
        <translation>请在列表中输入其密码。</translation>
    </message>
    <message>
        <source>The file lists none.</source>
        <translation>文件中没有录像机。</translation>
    </message>
    <message>
        <source>These lines were left out:</source>
        <translation>以下各行已略过：</translation>
    </message>
</context>
<context>
    <name>vemo_client::DeviceListFile</name>
    <message>
        <source>The file is larger than a list of recorders can be.</source>
        <translation>文件过大，不可能是录像机列表。</translation>
    </message>
    <message>
        <source>The first line names no column &quot;address&quot;.</source>
        <translation>首行中没有名为“address”的列。</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>第%1行：%2</translation>
    </message>
    <message>
        <source>More recorders than can be kept.</source>
        <translation>录像机数量超过上限。</translation>
    </message>
</context>
<context>
    <name>vemo_client::DeviceOperWt</name>
    <message>
        <source>Log in again</source>
        <translation>重新登录</translation>
    </message>
    <message>
        <source>Log in again (the recorder is disabled)</source>
        <translation>重新登录（录像机已停用）</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>停用</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>启用</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>修改</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>移除</translation>
    </message>
</context>
<context>
    <name>vemo_client::DevicesPage</name>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>details</source>
        <translation>详情</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>空格</translation>
    </message>
    <message>
        <source>select</source>
        <translation>选择</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Del</translation>
    </message>
    <message>
        <source>remove</source>
        <translation>移除</translation>
    </message>
    <message>
        <source>No recorder is known yet.</source>
        <translation>尚无录像机。</translation>
    </message>
    <message>
        <source>Let the client look for recorders on your network, or add one by its address.</source>
        <translation>让客户端在网络中查找录像机，或按地址添加一台。</translation>
    </message>
    <message>
        <source>Find on the network...</source>
        <translation>在网络中查找...</translation>
    </message>
    <message>
        <source>No recorder matches the filter.</source>
        <translation>没有录像机符合筛选条件。</translation>
    </message>
    <message>
        <source>Names, addresses, groups, models and channels are looked through.</source>
        <translation>筛选范围为名称、地址、分组、型号和通道。</translation>
    </message>
    <message>
        <source>Clear the filter</source>
        <translation>清除筛选</translation>
    </message>
    <message>
        <source>1 recorder</source>
        <translation>1台录像机</translation>
    </message>
    <message>
        <source>%1 recorders</source>
        <translation>%1台录像机</translation>
    </message>
    <message>
        <source>%1, %2 not online</source>
        <translation>%1，%2台不在线</translation>
    </message>
    <message>
        <source>1 selected</source>
        <translation>已选1项</translation>
    </message>
    <message>
        <source>%1 selected</source>
        <translation>已选%1项</translation>
    </message>
    <message>
        <source>Select recorders in the list first.</source>
        <translation>请先在列表中选择录像机。</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>详情</translation>
    </message>
    <message>
        <source>Log in again</source>
        <translation>重新登录</translation>
    </message>
    <message>
        <source>Check the key...</source>
        <translation>检查密钥...</translation>
    </message>
    <message>
        <source>Change...</source>
        <translation>修改...</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>启用</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>停用</translation>
    </message>
    <message>
        <source>Group...</source>
        <translation>分组...</translation>
    </message>
    <message>
        <source>Rename the group...</source>
        <translation>重命名分组...</translation>
    </message>
    <message>
        <source>Remove...</source>
        <translation>移除...</translation>
    </message>
</context>
<context>
    <name>vemo_client::DevicesTable</name>
    <message>
        <source>All</source>
        <translation>全部</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>State</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>地址</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>分组</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>通道</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>型号</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>备份</translation>
    </message>
    <message>
        <source>Last seen</source>
        <translation>最后在线</translation>
    </message>
    <message>
        <source>Oper</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>Recorders</source>
        <translation>录像机</translation>
    </message>
    <message>
        <source>%1, %2, %3</source>
        <translation>%1，%2，%3</translation>
    </message>
    <message>
        <source>%1, firmware %2</source>
        <translation>%1，固件%2</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>是</translation>
    </message>
    <message>
        <source>No</source>
        <translation>否</translation>
    </message>
</context>
<context>
    <name>vemo_client::DiscoveryDialog</name>
    <message>
        <source>%1 answers at %2 now</source>
        <translation>%1现在的地址为%2</translation>
    </message>
    <message>
        <source>It is stored with the address %1. Login, channels and tasks stay as they are.</source>
        <translation>其保存的地址为%1。登录信息、通道和任务保持不变。</translation>
    </message>
    <message>
        <source>Use the new address</source>
        <translation>使用新地址</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>添加</translation>
    </message>
    <message>
        <source>Add 1 recorder</source>
        <translation>添加1台录像机</translation>
    </message>
    <message>
        <source>Add %1 recorders</source>
        <translation>添加%1台录像机</translation>
    </message>
    <message>
        <source>Check that the recorder is switched on and in the same network as this computer, that ONVIF and its discovery are switched on in the recorder&apos;s settings, and that no firewall holds back UDP port 3702.

A recorder in another network does not hear the question: add it by its address.</source>
        <translation>请检查录像机是否已开机并与本机处于同一网络，录像机设置中是否已启用ONVIF及其发现功能，以及防火墙是否阻止了UDP端口3702。

其他网络中的录像机收不到查询：请按地址添加。</translation>
    </message>
</context>
<context>
    <name>vemo_client::DownloadBar</name>
    <message>
        <source>Download</source>
        <translation>下载</translation>
    </message>
    <message>
        <source>The span has not come yet</source>
        <translation>该时间段尚未到来</translation>
    </message>
    <message>
        <source>No channel is chosen</source>
        <translation>未选择通道</translation>
    </message>
    <message>
        <source>Downloading is not allowed for this user</source>
        <translation>该用户无下载权限</translation>
    </message>
    <message>
        <source>Puts it into the download queue</source>
        <translation>加入下载队列</translation>
    </message>
    <message>
        <source>No span is marked</source>
        <translation>未标记时间段</translation>
    </message>
    <message>
        <source>Drag on the time line to mark a span, or check recordings in the list</source>
        <translation>在时间轴上拖动以标记时间段，或在列表中勾选录像</translation>
    </message>
</context>
<context>
    <name>vemo_client::DownloadPrinter</name>
    <message>
        <source>%1 left</source>
        <translation>剩余%1</translation>
    </message>
    <message>
        <source>%1 of %2 running</source>
        <translation>%1/%2进行中</translation>
    </message>
    <message>
        <source>%1 to %2, %3 MB in %4 s (%5 MB/s), %6</source>
        <translation>%1至%2，%3 MB，用时%4秒 (%5 MB/s)，%6</translation>
    </message>
    <message>
        <source>the recorder gave no list of recordings to compare this with</source>
        <translation>录像机未提供可供比对的录像列表</translation>
    </message>
    <message>
        <source>gap %1 to %2: %3</source>
        <translation>缺口 %1至%2：%3</translation>
    </message>
</context>
<context>
    <name>vemo_client::Failures</name>
    <message>
        <source>The recorder gave no reason</source>
        <translation>录像机未说明原因</translation>
    </message>
    <message>
        <source>%1 shows another key than the pinned one, so nothing was sent to it; the SHA-256 of its key is %2.</source>
        <translation>%1出示的密钥与指定的密钥不同，因此未向其发送任何内容；其密钥的SHA-256为%2。</translation>
    </message>
    <message>
        <source>The certificate of %1 is not trusted (%2), so nothing was sent to it; if this is the key of your recorder, add --pin %3.</source>
        <translation>%1的证书不受信任（%2），因此未向其发送任何内容；如果这是您录像机的密钥，请添加--pin %3。</translation>
    </message>
    <message>
        <source>%1 has no channels, so there is no channel %2.</source>
        <translation>%1没有任何通道，因此不存在通道%2。</translation>
    </message>
    <message>
        <source>%1 has no channel %2; its channels are %3.</source>
        <translation>%1没有通道%2；其通道为%3。</translation>
    </message>
</context>
<context>
    <name>vemo_client::FirstRecorderWt</name>
    <message>
        <source>Keep it offline</source>
        <translation>离线保留</translation>
    </message>
    <message>
        <source>Add your first recorder</source>
        <translation>添加您的第一台录像机</translation>
    </message>
    <message>
        <source>Its recordings can be searched and fetched as soon as the client is logged in.</source>
        <translation>客户端登录后，即可搜索和获取其录像。</translation>
    </message>
    <message>
        <source>Every hour that matters,
safe on your own disks.</source>
        <translation>重要的每一刻，
安存于自己的磁盘。</translation>
    </message>
    <message>
        <source>Search the days of your network recorders and fetch what you need as files.</source>
        <translation>按日期搜索网络录像机，将所需内容获取为文件。</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>正在连接...</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Add and log in</source>
        <translation>添加并登录</translation>
    </message>
    <message>
        <source>Find on the network...</source>
        <translation>在网络中查找...</translation>
    </message>
    <message>
        <source>No recorder is known yet</source>
        <translation>尚无录像机</translation>
    </message>
    <message>
        <source>Somebody who may look after devices adds the first one; its recordings show here.</source>
        <translation>由有设备管理权限的用户添加第一台录像机后，其录像会显示在这里。</translation>
    </message>
</context>
<context>
    <name>vemo_client::FolderEdit</name>
    <message>
        <source>Make folder</source>
        <translation>创建文件夹</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>浏览</translation>
    </message>
    <message>
        <source>Browse: %1</source>
        <translation>浏览：%1</translation>
    </message>
    <message>
        <source>The folder can&apos;t be made here. Choose another one.</source>
        <translation>无法在此处创建文件夹。请另选一个。</translation>
    </message>
</context>
<context>
    <name>vemo_client::FolderField</name>
    <message>
        <source>Browse</source>
        <translation>浏览</translation>
    </message>
    <message>
        <source>Browse: %1</source>
        <translation>浏览：%1</translation>
    </message>
    <message>
        <source>%1 free of %2</source>
        <translation>可用%1，共%2</translation>
    </message>
</context>
<context>
    <name>vemo_client::FoldersPage</name>
    <message>
        <source>Choose where files are kept</source>
        <translation>选择文件的保存位置</translation>
    </message>
    <message>
        <source>Footage takes much room. Each folder may lie on a disk of its own and can be changed later in the settings.</source>
        <translation>录像占用大量空间。每个文件夹可位于单独的磁盘，以后可在设置中更改。</translation>
    </message>
    <message>
        <source>Recordings and snapshots of live video</source>
        <translation>实时预览的录像和抓图</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>下载</translation>
    </message>
    <message>
        <source>Recordings backup</source>
        <translation>录像备份</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>继续</translation>
    </message>
</context>
<context>
    <name>vemo_client::GroupDialog</name>
    <message>
        <source>Group</source>
        <translation>分组</translation>
    </message>
    <message>
        <source>The recorder is listed below this group. An empty name takes it out of any.</source>
        <translation>该录像机将列在此分组下。名称留空则不属于任何分组。</translation>
    </message>
    <message>
        <source>%1 recorders are listed below this group. An empty name takes them out of any.</source>
        <translation>%1台录像机将列在此分组下。名称留空则不属于任何分组。</translation>
    </message>
    <message>
        <source>Name of the group</source>
        <translation>分组名称</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>应用</translation>
    </message>
</context>
<context>
    <name>vemo_client::GuideWindow</name>
    <message>
        <source>Guide</source>
        <translation>使用指南</translation>
    </message>
    <message>
        <source>Headings</source>
        <translation>标题</translation>
    </message>
    <message>
        <source>The guide is not installed</source>
        <translation>使用指南未安装</translation>
    </message>
    <message>
        <source>It belongs to the program&apos;s files. Installing Vemo again brings it back.</source>
        <translation>使用指南属于程序文件。重新安装Vemo即可恢复。</translation>
    </message>
</context>
<context>
    <name>vemo_client::LanguageButton</name>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>Language: %1</source>
        <translation>语言：%1</translation>
    </message>
</context>
<context>
    <name>vemo_client::LiveBar</name>
    <message>
        <source>View</source>
        <translation>视图</translation>
    </message>
    <message>
        <source>The channels that are watched together</source>
        <translation>一起观看的通道</translation>
    </message>
    <message>
        <source>Save, rename or delete the view</source>
        <translation>保存、重命名或删除视图</translation>
    </message>
    <message>
        <source>Save view as...</source>
        <translation>视图另存为...</translation>
    </message>
    <message>
        <source>Rename view...</source>
        <translation>重命名视图...</translation>
    </message>
    <message>
        <source>Delete view...</source>
        <translation>删除视图...</translation>
    </message>
    <message>
        <source>One channel (1)</source>
        <translation>1个通道 (1)</translation>
    </message>
    <message>
        <source>Four channels (4)</source>
        <translation>4个通道 (4)</translation>
    </message>
    <message>
        <source>Nine channels (9)</source>
        <translation>9个通道 (9)</translation>
    </message>
    <message>
        <source>Snapshot</source>
        <translation>抓图</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>停止录像</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>录像</translation>
    </message>
    <message>
        <source>Full screen (F)</source>
        <translation>全屏 (F)</translation>
    </message>
    <message>
        <source>View without a name</source>
        <translation>未命名视图</translation>
    </message>
    <message>
        <source>Save the picture of the selected tile (S)</source>
        <translation>保存所选画面格的图像 (S)</translation>
    </message>
    <message>
        <source>The selected tile shows no picture</source>
        <translation>所选画面格没有图像</translation>
    </message>
    <message>
        <source>The selected tile shows no channel</source>
        <translation>所选画面格没有通道</translation>
    </message>
    <message>
        <source>Finish the file of the selected tile (R)</source>
        <translation>结束所选画面格的录像文件 (R)</translation>
    </message>
    <message>
        <source>Record the channel of the selected tile on this computer (R)</source>
        <translation>将所选画面格的通道录制到本机 (R)</translation>
    </message>
</context>
<context>
    <name>vemo_client::LiveColumn</name>
    <message>
        <source>Filter by channel name</source>
        <translation>按通道名称筛选</translation>
    </message>
    <message>
        <source>Drag a channel onto a tile, or press Enter to show it in the next free one.</source>
        <translation>将通道拖到画面格上，或按Enter键在下一个空闲画面格中显示。</translation>
    </message>
</context>
<context>
    <name>vemo_client::LivePage</name>
    <message>
        <source>1 channel, %1 Mbit/s</source>
        <translation>1个通道，%1 Mbit/s</translation>
    </message>
    <message>
        <source>%1 channels, %2 Mbit/s</source>
        <translation>%1个通道，%2 Mbit/s</translation>
    </message>
    <message>
        <source>A live channel is being recorded. The recording ends, and what was recorded is kept.</source>
        <translation>一个预览通道正在录像。录像将结束，已录制的内容会保留。</translation>
    </message>
    <message>
        <source>%1 live channels are being recorded. The recordings end, and what was recorded is kept.</source>
        <translation>%1个预览通道正在录像。录像将结束，已录制的内容会保留。</translation>
    </message>
    <message>
        <source>Save view</source>
        <translation>保存视图</translation>
    </message>
    <message>
        <source>The channels in their tiles are kept under this name. A view of the same name is replaced.</source>
        <translation>各画面格中的通道将以此名称保存，同名视图会被替换。</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>There are too many views already. Delete one first.</source>
        <translation>视图过多。请先删除一个。</translation>
    </message>
    <message>
        <source>Rename view</source>
        <translation>重命名视图</translation>
    </message>
    <message>
        <source>The view %1 gets another name.</source>
        <translation>为视图%1设置新名称。</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>重命名</translation>
    </message>
    <message>
        <source>There is a view of this name already.</source>
        <translation>已有同名视图。</translation>
    </message>
    <message>
        <source>Delete view</source>
        <translation>删除视图</translation>
    </message>
    <message>
        <source>Delete the view %1? The channels stay in their tiles.</source>
        <translation>是否删除视图%1？画面格中的通道保持不变。</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Live</source>
        <translation>实时预览</translation>
    </message>
</context>
<context>
    <name>vemo_client::LiveRecorder</name>
    <message>
        <source>The folder for recordings can&apos;t be used: %1</source>
        <translation>录像文件夹无法使用：%1</translation>
    </message>
    <message>
        <source>The disk of the folder for recordings has less than 1 GB left.</source>
        <translation>录像文件夹所在磁盘的可用空间不足1 GB。</translation>
    </message>
    <message>
        <source>The disk of the folder for recordings does not answer.</source>
        <translation>录像文件夹所在磁盘没有应答。</translation>
    </message>
    <message>
        <source>The recording could not be started.</source>
        <translation>无法开始录像。</translation>
    </message>
    <message>
        <source>The recording was broken off.</source>
        <translation>录像已中断。</translation>
    </message>
</context>
<context>
    <name>vemo_client::LiveStage</name>
    <message>
        <source>Every tile is being recorded</source>
        <translation>所有画面格都在录像</translation>
    </message>
    <message>
        <source>Stop a recording, or show more tiles, to see another channel.</source>
        <translation>要查看其他通道，请停止一个录像或显示更多画面格。</translation>
    </message>
    <message>
        <source>Snapshot of %1</source>
        <translation>%1的抓图</translation>
    </message>
    <message>
        <source>The recording of %1 has ended</source>
        <translation>%1的录像已结束</translation>
    </message>
    <message>
        <source>%1 What was recorded until then is kept.</source>
        <translation>%1此前录制的内容已保留。</translation>
    </message>
    <message>
        <source>Nothing of %1 was recorded</source>
        <translation>%1没有录到任何内容</translation>
    </message>
    <message>
        <source>No picture came before the recording was stopped.</source>
        <translation>录像停止前没有收到画面。</translation>
    </message>
    <message>
        <source>The recording of %1 is saved</source>
        <translation>%1的录像已保存</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>在文件夹中显示</translation>
    </message>
    <message>
        <source>Snapshot (S)</source>
        <translation>抓图 (S)</translation>
    </message>
    <message>
        <source>Stop recording (R)</source>
        <translation>停止录像 (R)</translation>
    </message>
    <message>
        <source>Record (R)</source>
        <translation>录像 (R)</translation>
    </message>
    <message>
        <source>Show all tiles (Enter)</source>
        <translation>显示所有画面格 (Enter)</translation>
    </message>
    <message>
        <source>Enlarge (Enter)</source>
        <translation>放大 (Enter)</translation>
    </message>
    <message>
        <source>Close the channel (Del)</source>
        <translation>关闭通道 (Del)</translation>
    </message>
    <message>
        <source>Drag a channel here</source>
        <translation>将通道拖到这里</translation>
    </message>
    <message>
        <source>REC %1</source>
        <translation>录像 %1</translation>
    </message>
    <message>
        <source>Decoded by the processor</source>
        <translation>由处理器解码</translation>
    </message>
    <message>
        <source>Decoded by the hardware: %1</source>
        <translation>由硬件解码：%1</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>正在连接...</translation>
    </message>
    <message>
        <source>No signal.</source>
        <translation>无信号。</translation>
    </message>
    <message>
        <source>The login can be changed on the page Devices.</source>
        <translation>登录信息可在“设备”页面修改。</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Trying again in %1 s</source>
        <translation>%1秒后重试</translation>
    </message>
    <message>
        <source>Try now</source>
        <translation>立即重试</translation>
    </message>
</context>
<context>
    <name>vemo_client::LocalListing</name>
    <message>
        <source>Begin</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>End</source>
        <translation>结束</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>通道</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
</context>
<context>
    <name>vemo_client::LocalVerb</name>
    <message>
        <source>Capture time:%1</source>
        <translation>抓图时间：%1</translation>
    </message>
    <message>
        <source>Record begin time:%1,file size:%2</source>
        <translation>录像开始时间：%1，文件大小：%2</translation>
    </message>
    <message>
        <source>Interrupted.</source>
        <translation>已中断。</translation>
    </message>
    <message>
        <source>%1 recordings, %2 snapshots; %3 new or changed, %4 of them broken; %5 gone.</source>
        <translation>%1段录像，%2张抓图；新增或有变化%3个，其中损坏%4个；消失%5个。</translation>
    </message>
    <message>
        <source>There are more than %1 recordings; only the oldest are taken. Give --begin and --end.</source>
        <translation>录像超过%1段，仅取最早的部分。请指定--begin和--end。</translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be made.</source>
        <translation>无法创建文件夹%1。</translation>
    </message>
    <message>
        <source>%1 could not be saved: %2</source>
        <translation>无法保存%1：%2</translation>
    </message>
    <message>
        <source>The files could not be saved.</source>
        <translation>无法保存文件。</translation>
    </message>
    <message>
        <source>The database could not be written.</source>
        <translation>无法写入数据库。</translation>
    </message>
    <message>
        <source>%1 could not be deleted.</source>
        <translation>无法删除%1。</translation>
    </message>
</context>
<context>
    <name>vemo_client::LocalVerbOptions</name>
    <message>
        <source>Only what touches the time from here on, as 2026-01-10T08:00:00.</source>
        <translation>仅限涉及此时间及之后的内容，如2026-01-10T08:00:00。</translation>
    </message>
    <message>
        <source>time</source>
        <translation>time</translation>
    </message>
    <message>
        <source>Only what touches the time up to here.</source>
        <translation>仅限涉及此时间及之前的内容。</translation>
    </message>
    <message>
        <source>Only of the channel with this name.</source>
        <translation>仅限具有此名称的通道。</translation>
    </message>
    <message>
        <source>name</source>
        <translation>name</translation>
    </message>
    <message>
        <source>Every file, of every time and channel.</source>
        <translation>所有时间和通道的全部文件。</translation>
    </message>
    <message>
        <source>Folder to save in. Files there are never overwritten.</source>
        <translation>保存到的文件夹。已有文件绝不会被覆盖。</translation>
    </message>
    <message>
        <source>dir</source>
        <translation>dir</translation>
    </message>
    <message>
        <source>Deletes without a further question.</source>
        <translation>删除时不再询问。</translation>
    </message>
    <message>
        <source>Folder to look through with what is below it, instead of the client&apos;s own; its files are known from then on.</source>
        <translation>要查找的文件夹（含子文件夹），代替客户端自己的文件夹；其中的文件此后将被登记。</translation>
    </message>
</context>
<context>
    <name>vemo_client::LogExport</name>
    <message>
        <source>The export was cancelled. Nothing was written.</source>
        <translation>导出已取消，未写入任何内容。</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Time (UTC)</source>
        <translation>时间 (UTC)</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>Channel number</source>
        <translation>通道号</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>通道</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>事件</translation>
    </message>
    <message>
        <source>The file %1 could not be written: %2</source>
        <translation>无法写入文件%1：%2</translation>
    </message>
</context>
<context>
    <name>vemo_client::LogWords</name>
    <message>
        <source>Download</source>
        <translation>下载</translation>
    </message>
    <message>
        <source>Recording deleted</source>
        <translation>录像已删除</translation>
    </message>
    <message>
        <source>Snapshot deleted</source>
        <translation>抓图已删除</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>备份</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>其他</translation>
    </message>
    <message>
        <source>Channel %1</source>
        <translation>通道%1</translation>
    </message>
</context>
<context>
    <name>vemo_client::LoginPage</name>
    <message>
        <source>Password</source>
        <translation>密码</translation>
    </message>
    <message>
        <source>Stay logged in on this computer</source>
        <translation>在本机保持登录</translation>
    </message>
    <message>
        <source>Log in</source>
        <translation>登录</translation>
    </message>
    <message>
        <source>User name</source>
        <translation>用户名</translation>
    </message>
    <message>
        <source>Caps Lock is on</source>
        <translation>大写锁定已开启</translation>
    </message>
    <message>
        <source>Capital and small letters are told apart.</source>
        <translation>区分大小写。</translation>
    </message>
    <message>
        <source>1 download is waiting and goes on after login.</source>
        <translation>1个下载正在等待，登录后继续。</translation>
    </message>
    <message>
        <source>%1 downloads are waiting and go on after login.</source>
        <translation>%1个下载正在等待，登录后继续。</translation>
    </message>
    <message>
        <source>Give the name and the password of your account.</source>
        <translation>请输入账户的名称和密码。</translation>
    </message>
    <message>
        <source>Last login of %1: %2</source>
        <translation>%1上次登录：%2</translation>
    </message>
    <message>
        <source>Logging in...</source>
        <translation>正在登录...</translation>
    </message>
    <message>
        <source>You do not stay logged in</source>
        <translation>未能保持登录</translation>
    </message>
    <message>
        <source>It could not be stored. The next start asks for the password again.</source>
        <translation>无法保存登录状态。下次启动时将再次要求输入密码。</translation>
    </message>
    <message>
        <source>This account is disabled. An administrator can enable it again.</source>
        <translation>该账户已停用，可由管理员重新启用。</translation>
    </message>
    <message>
        <source>The user name or the password is wrong.</source>
        <translation>用户名或密码错误。</translation>
    </message>
    <message>
        <source>The user name or the password is wrong. After one more wrong try the account is locked.</source>
        <translation>用户名或密码错误。再输错一次账户将被锁定。</translation>
    </message>
    <message>
        <source>The account can be used again.</source>
        <translation>账户可以继续使用。</translation>
    </message>
    <message>
        <source>Too many wrong passwords. The account is locked for %1.</source>
        <translation>密码错误次数过多。账户已锁定%1。</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1秒</translation>
    </message>
    <message>
        <source>%1 min %2 s</source>
        <translation>%1分%2秒</translation>
    </message>
</context>
<context>
    <name>vemo_client::LoginWords</name>
    <message>
        <source>Online</source>
        <translation>在线</translation>
    </message>
    <message>
        <source>Password wanted</source>
        <translation>需要密码</translation>
    </message>
    <message>
        <source>Certificate</source>
        <translation>证书</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>正在连接</translation>
    </message>
    <message>
        <source>The password is wanted</source>
        <translation>需要密码</translation>
    </message>
    <message>
        <source>It is not kept on this computer, or can&apos;t be read.</source>
        <translation>密码未保存在本机，或无法读取。</translation>
    </message>
    <message>
        <source>Type it once more.</source>
        <translation>请重新输入。</translation>
    </message>
    <message>
        <source>Disabled</source>
        <translation>已停用</translation>
    </message>
    <message>
        <source>Default password</source>
        <translation>默认密码</translation>
    </message>
    <message>
        <source>Login limit</source>
        <translation>登录数已满</translation>
    </message>
    <message>
        <source>Relay broken</source>
        <translation>中继中断</translation>
    </message>
    <message>
        <source>The keyring is closed</source>
        <translation>密钥环已锁定</translation>
    </message>
    <message>
        <source>The password lies in the desktop&apos;s keyring, which does not open it.</source>
        <translation>密码保存在桌面的密钥环中，但密钥环未打开。</translation>
    </message>
    <message>
        <source>Unlock the keyring and log in again, or type the password: it is then kept in an encrypted file.</source>
        <translation>请解锁密钥环后重新登录，或输入密码：密码将保存在加密文件中。</translation>
    </message>
</context>
<context>
    <name>vemo_client::LogsPage</name>
    <message>
        <source>Logs</source>
        <translation>日志</translation>
    </message>
    <message>
        <source>Span of time</source>
        <translation>时间段</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Kind of entries</source>
        <translation>条目类型</translation>
    </message>
    <message>
        <source>Every kind</source>
        <translation>所有类型</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>通道</translation>
    </message>
    <message>
        <source>Channel that the entries are about</source>
        <translation>条目涉及的通道</translation>
    </message>
    <message>
        <source>Every channel</source>
        <translation>所有通道</translation>
    </message>
    <message>
        <source>Filter by words</source>
        <translation>按关键词筛选</translation>
    </message>
    <message>
        <source>Export as CSV</source>
        <translation>导出为CSV</translation>
    </message>
    <message>
        <source>Writes all entries that match, of every page, into a file for spreadsheets.</source>
        <translation>将所有页中符合条件的条目写入文件，供电子表格程序使用。</translation>
    </message>
    <message>
        <source>Nothing was logged in this span.</source>
        <translation>该时间段内没有日志。</translation>
    </message>
    <message>
        <source>Downloads that end, backups, and files that are deleted leave their entries here. Choose another span.</source>
        <translation>下载结束、备份和文件删除都会在此留下条目。请选择其他时间段。</translation>
    </message>
    <message>
        <source>No entry matches the filters.</source>
        <translation>没有条目符合筛选条件。</translation>
    </message>
    <message>
        <source>The words are looked for in device, channel and event.</source>
        <translation>关键词的查找范围为设备、通道和事件。</translation>
    </message>
    <message>
        <source>Clear the filters</source>
        <translation>清除筛选条件</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1（%2）</translation>
    </message>
    <message>
        <source>1 entry, newest first</source>
        <translation>1条，最新在前</translation>
    </message>
    <message>
        <source>%1 entries, newest first</source>
        <translation>%1条，最新在前</translation>
    </message>
    <message>
        <source>CSV files (*.csv)</source>
        <translation>CSV文件 (*.csv)</translation>
    </message>
    <message>
        <source>Exporting the log:%1%</source>
        <translation>正在导出日志：%1%</translation>
    </message>
    <message>
        <source>1 log entry was exported</source>
        <translation>已导出1条日志</translation>
    </message>
    <message>
        <source>%1 log entries were exported</source>
        <translation>已导出%1条日志</translation>
    </message>
    <message>
        <source>Open the folder</source>
        <translation>打开文件夹</translation>
    </message>
    <message>
        <source>The log was not exported</source>
        <translation>日志未导出</translation>
    </message>
</context>
<context>
    <name>vemo_client::LogsTable</name>
    <message>
        <source>No.</source>
        <translation>序号</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>通道</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>事件</translation>
    </message>
    <message>
        <source>Log entries</source>
        <translation>日志条目</translation>
    </message>
</context>
<context>
    <name>vemo_client::MainWindow</name>
    <message>
        <source>Stored data</source>
        <translation>已保存的数据</translation>
    </message>
</context>
<context>
    <name>vemo_client::ModulePages</name>
    <message>
        <source>Playback</source>
        <translation>回放</translation>
    </message>
    <message>
        <source>Files Center</source>
        <translation>文件中心</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>Live</source>
        <translation>实时预览</translation>
    </message>
    <message>
        <source>Logs</source>
        <translation>日志</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
</context>
<context>
    <name>vemo_client::NoticeBell</name>
    <message>
        <source>Notices</source>
        <translation>通知</translation>
    </message>
    <message>
        <source>Notices: %1 new</source>
        <translation>通知：%1条新通知</translation>
    </message>
    <message>
        <source>Notices: %1 new, %2 of them tell of failures</source>
        <translation>通知：%1条新通知，其中%2条为失败</translation>
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
        <translation>%1（%2次）</translation>
    </message>
</context>
<context>
    <name>vemo_client::NoticesPopup</name>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
    <message>
        <source>Notices</source>
        <translation>通知</translation>
    </message>
    <message>
        <source>Forget all notices</source>
        <translation>清除所有通知</translation>
    </message>
    <message>
        <source>No notices. What the client has to tell is kept here.</source>
        <translation>没有通知。客户端的消息会保留在这里。</translation>
    </message>
</context>
<context>
    <name>vemo_client::OutPath</name>
    <message>
        <source>%1 is a file; several channels need a folder.</source>
        <translation>%1是文件；多个通道需要文件夹。</translation>
    </message>
    <message>
        <source>%1 is neither a file nor a folder.</source>
        <translation>%1既不是文件也不是文件夹。</translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be made.</source>
        <translation>无法创建文件夹%1。</translation>
    </message>
    <message>
        <source>The folder %1 does not exist.</source>
        <translation>文件夹%1不存在。</translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be written.</source>
        <translation>无法写入文件夹%1。</translation>
    </message>
</context>
<context>
    <name>vemo_client::PasswordEdit</name>
    <message>
        <source>Show the password</source>
        <translation>显示密码</translation>
    </message>
    <message>
        <source>Hide the password</source>
        <translation>隐藏密码</translation>
    </message>
</context>
<context>
    <name>vemo_client::PictureSaver</name>
    <message>
        <source>Snapshot saved</source>
        <translation>抓图已保存</translation>
    </message>
    <message>
        <source>The snapshot could not be saved</source>
        <translation>无法保存抓图</translation>
    </message>
</context>
<context>
    <name>vemo_client::PlaybackDays</name>
    <message>
        <source>No list of recordings: click on a time to play, or mark a span</source>
        <translation>没有录像列表：点击某一时间进行播放，或标记时间段</translation>
    </message>
</context>
<context>
    <name>vemo_client::PlaybackPage</name>
    <message>
        <source>No channel is chosen</source>
        <translation>未选择通道</translation>
    </message>
    <message>
        <source>, the first %1 are listed</source>
        <translation>，仅列出前%1条</translation>
    </message>
    <message>
        <source>%1 of %2 channels could not be searched</source>
        <translation>%2个通道中有%1个无法搜索</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>搜索</translation>
    </message>
    <message>
        <source>The recordings of %1 are searched</source>
        <translation>正在搜索%1的录像</translation>
    </message>
    <message>
        <source>They appear here channel by channel.</source>
        <translation>录像将按通道依次显示在这里。</translation>
    </message>
    <message>
        <source>Check up to %1 channels, pick a day and press Search.</source>
        <translation>勾选最多%1个通道，选择日期，然后点击“搜索”。</translation>
    </message>
    <message>
        <source>This recorder has no list of recordings</source>
        <translation>该录像机没有录像列表</translation>
    </message>
    <message>
        <source>Mark a span on the axis, or type two times, and press Download.</source>
        <translation>在时间轴上标记时间段，或输入两个时间，然后点击“下载”。</translation>
    </message>
    <message>
        <source>The recordings could not be searched</source>
        <translation>无法搜索录像</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>There is no recording on %1</source>
        <translation>%1没有录像</translation>
    </message>
    <message>
        <source>Pick another day, or check other channels.</source>
        <translation>请选择其他日期，或勾选其他通道。</translation>
    </message>
    <message>
        <source>%1 was not searched yet</source>
        <translation>%1尚未搜索</translation>
    </message>
    <message>
        <source>Press Search to see what the recorder has.</source>
        <translation>点击“搜索”查看录像机上的内容。</translation>
    </message>
    <message>
        <source>Type the login</source>
        <translation>输入登录信息</translation>
    </message>
    <message>
        <source>Recordings as a list</source>
        <translation>以列表显示录像</translation>
    </message>
    <message>
        <source>Check the key...</source>
        <translation>检查密钥...</translation>
    </message>
</context>
<context>
    <name>vemo_client::PlaybackStage</name>
    <message>
        <source>No recording from %1 to %2: playing on from there.</source>
        <translation>%1至%2没有录像：从其后继续播放。</translation>
    </message>
    <message>
        <source>There is no further recording on this day.</source>
        <translation>当天没有后续录像。</translation>
    </message>
    <message>
        <source>Save the shown picture</source>
        <translation>保存当前画面</translation>
    </message>
    <message>
        <source>Show all channels</source>
        <translation>显示所有通道</translation>
    </message>
    <message>
        <source>Enlarge</source>
        <translation>放大</translation>
    </message>
    <message>
        <source>Close this channel</source>
        <translation>关闭此通道</translation>
    </message>
    <message>
        <source>Check a channel in the list, or drag it here.</source>
        <translation>在列表中勾选通道，或将其拖到这里。</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Searching for recordings...</source>
        <translation>正在搜索录像...</translation>
    </message>
    <message>
        <source>Loading the picture...</source>
        <translation>正在加载画面...</translation>
    </message>
    <message>
        <source>Press Play, or click on the time line.</source>
        <translation>点击“播放”，或点击时间轴。</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>播放</translation>
    </message>
    <message>
        <source>No recording from %1 to %2</source>
        <translation>%1至%2没有录像</translation>
    </message>
    <message>
        <source>Jump to %1</source>
        <translation>跳至%1</translation>
    </message>
    <message>
        <source>%1
Trying again...</source>
        <translation>%1
正在重试...</translation>
    </message>
    <message>
        <source>Playback</source>
        <translation>回放</translation>
    </message>
</context>
<context>
    <name>vemo_client::PlaybackTransport</name>
    <message>
        <source>10 s back (Left arrow)</source>
        <translation>后退10秒 (左方向键)</translation>
    </message>
    <message>
        <source>Frame back (comma)</source>
        <translation>上一帧 (逗号)</translation>
    </message>
    <message>
        <source>Play (Space)</source>
        <translation>播放 (空格)</translation>
    </message>
    <message>
        <source>Frame on (period)</source>
        <translation>下一帧 (句号)</translation>
    </message>
    <message>
        <source>10 s on (Right arrow)</source>
        <translation>前进10秒 (右方向键)</translation>
    </message>
    <message>
        <source>Speed ([ slower, ] faster)</source>
        <translation>速度 ([ 减慢，] 加快)</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>速度</translation>
    </message>
    <message>
        <source>All channels play the same time</source>
        <translation>所有通道同步播放</translation>
    </message>
    <message>
        <source>Save the shown picture (S)</source>
        <translation>保存当前画面 (S)</translation>
    </message>
    <message>
        <source>One channel</source>
        <translation>1个通道</translation>
    </message>
    <message>
        <source>Four channels</source>
        <translation>4个通道</translation>
    </message>
    <message>
        <source>Full screen (F)</source>
        <translation>全屏 (F)</translation>
    </message>
    <message>
        <source>No channel is chosen</source>
        <translation>未选择通道</translation>
    </message>
    <message>
        <source>Pause (Space)</source>
        <translation>暂停 (空格)</translation>
    </message>
    <message>
        <source>Leave full screen (F)</source>
        <translation>退出全屏 (F)</translation>
    </message>
</context>
<context>
    <name>vemo_client::PowerWords</name>
    <message>
        <source>live view</source>
        <translation>实时预览</translation>
    </message>
    <message>
        <source>Watch live video, record it, take snapshots</source>
        <translation>观看实时视频、录像、抓图</translation>
    </message>
    <message>
        <source>playback</source>
        <translation>回放</translation>
    </message>
    <message>
        <source>Search and play what the recorders hold</source>
        <translation>搜索和播放录像机上的录像</translation>
    </message>
    <message>
        <source>downloads</source>
        <translation>下载</translation>
    </message>
    <message>
        <source>Download recordings and plan backups</source>
        <translation>下载录像和计划备份</translation>
    </message>
    <message>
        <source>local recordings</source>
        <translation>本地录像</translation>
    </message>
    <message>
        <source>Play, save and delete local recordings</source>
        <translation>播放、保存和删除本地录像</translation>
    </message>
    <message>
        <source>local snapshots</source>
        <translation>本地抓图</translation>
    </message>
    <message>
        <source>View, save and delete local snapshots</source>
        <translation>查看、保存和删除本地抓图</translation>
    </message>
    <message>
        <source>recorders</source>
        <translation>录像机</translation>
    </message>
    <message>
        <source>Add, change and remove recorders</source>
        <translation>添加、修改和移除录像机</translation>
    </message>
    <message>
        <source>logs</source>
        <translation>日志</translation>
    </message>
    <message>
        <source>Read and export the logs</source>
        <translation>查看和导出日志</translation>
    </message>
    <message>
        <source>settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Change settings that concern everybody here</source>
        <translation>修改涉及本机所有用户的设置</translation>
    </message>
    <message>
        <source>Administrator</source>
        <translation>管理员</translation>
    </message>
    <message>
        <source>nothing but local files</source>
        <translation>仅本地文件</translation>
    </message>
</context>
<context>
    <name>vemo_client::PowersEdit</name>
    <message>
        <source>Administrator: everything, other users included</source>
        <translation>管理员：所有权限，包括管理其他用户</translation>
    </message>
    <message>
        <source>An administrator may do everything.</source>
        <translation>管理员拥有所有权限。</translation>
    </message>
</context>
<context>
    <name>vemo_client::QueueEdit</name>
    <message>
        <source>The task %1 is in no state for that.</source>
        <translation>任务%1的状态不允许此操作。</translation>
    </message>
    <message>
        <source>There is no task %1.</source>
        <translation>任务%1不存在。</translation>
    </message>
</context>
<context>
    <name>vemo_client::QueueListing</name>
    <message>
        <source>The recorder refused the login.</source>
        <translation>录像机拒绝登录。</translation>
    </message>
    <message>
        <source>The recorder could not be reached.</source>
        <translation>无法连接录像机。</translation>
    </message>
    <message>
        <source>The download broke off.</source>
        <translation>下载中断。</translation>
    </message>
    <message>
        <source>The file is missing or can&apos;t be used.</source>
        <translation>文件缺失或无法使用。</translation>
    </message>
    <message>
        <source>The recorder gave no address to replay from.</source>
        <translation>录像机未提供回放地址。</translation>
    </message>
    <message>
        <source>The reason is not known.</source>
        <translation>原因未知。</translation>
    </message>
    <message>
        <source>Id</source>
        <translation>编号</translation>
    </message>
    <message>
        <source>State</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>通道</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>End</source>
        <translation>结束</translation>
    </message>
    <message>
        <source>MB</source>
        <translation>MB</translation>
    </message>
    <message>
        <source>File, or reason</source>
        <translation>文件或原因</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>失败</translation>
    </message>
    <message>
        <source>waiting</source>
        <translation>等待</translation>
    </message>
    <message>
        <source>paused</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>partly</source>
        <translation>部分</translation>
    </message>
    <message>
        <source>done</source>
        <translation>完成</translation>
    </message>
</context>
<context>
    <name>vemo_client::QueueRun</name>
    <message>
        <source>The folder for videos, %1, does not exist.</source>
        <translation>视频文件夹%1不存在。</translation>
    </message>
    <message>
        <source>%1 running, %2 waiting</source>
        <translation>%1个进行中，%2个等待</translation>
    </message>
    <message>
        <source>, %1 to be tried again</source>
        <translation>，%1个待重试</translation>
    </message>
    <message>
        <source>%1 tasks failed or are incomplete; see vemo_client queue list.</source>
        <translation>%1个任务失败或不完整；请参阅vemo_client queue list。</translation>
    </message>
    <message>
        <source>Interrupted; what had arrived is kept, and the rest waits in the queue.</source>
        <translation>已中断；已到达的内容已保留，其余部分在队列中等待。</translation>
    </message>
</context>
<context>
    <name>vemo_client::QueueTray</name>
    <message>
        <source>Vemo, download queue: %1</source>
        <translation>Vemo，下载队列：%1</translation>
    </message>
    <message>
        <source>1 file</source>
        <translation>1个文件</translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation>%1个文件</translation>
    </message>
    <message>
        <source>All downloads are done: %1</source>
        <translation>所有下载已完成：%1</translation>
    </message>
    <message>
        <source>The download queue is empty: %1</source>
        <translation>下载队列已空：%1</translation>
    </message>
    <message>
        <source>What arrived lies in the folder of downloads.</source>
        <translation>已到达的内容位于下载文件夹。</translation>
    </message>
    <message>
        <source>1 download has failed; Download Failure says why.</source>
        <translation>1个下载失败，原因见“下载失败”。</translation>
    </message>
    <message>
        <source>%1 downloads have failed; Download Failure says why.</source>
        <translation>%1个下载失败，原因见“下载失败”。</translation>
    </message>
</context>
<context>
    <name>vemo_client::QueueVerb</name>
    <message>
        <source>Interrupted.</source>
        <translation>已中断。</translation>
    </message>
    <message>
        <source>The database could not be written.</source>
        <translation>无法写入数据库。</translation>
    </message>
    <message>
        <source>%1 tasks were removed.</source>
        <translation>已移除%1个任务。</translation>
    </message>
    <message>
        <source>%1 of %2 requests are in the queue already.</source>
        <translation>%2个请求中有%1个已在队列中。</translation>
    </message>
</context>
<context>
    <name>vemo_client::QueueWatch</name>
    <message>
        <source>%1 running</source>
        <translation>%1个进行中</translation>
    </message>
    <message>
        <source>%1 waiting</source>
        <translation>%1个等待</translation>
    </message>
    <message>
        <source>%1 to be retried</source>
        <translation>%1个待重试</translation>
    </message>
    <message>
        <source>%1 paused</source>
        <translation>%1个暂停</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>空</translation>
    </message>
    <message>
        <source>%1 running, %2 waiting, %3 paused, %4 to be retried</source>
        <translation>%1个进行中，%2个等待，%3个暂停，%4个待重试</translation>
    </message>
</context>
<context>
    <name>vemo_client::RecorderAddress</name>
    <message>
        <source>Type the address of the recorder. Example: 192.168.1.20</source>
        <translation>请输入录像机地址。示例：192.168.1.20</translation>
    </message>
    <message>
        <source>The address is longer than any address is.</source>
        <translation>地址过长。</translation>
    </message>
    <message>
        <source>An address holds no spaces.</source>
        <translation>地址不能包含空格。</translation>
    </message>
    <message>
        <source>The address must begin with http, https, rtsp or rtsps.</source>
        <translation>地址必须以http、https、rtsp或rtsps开头。</translation>
    </message>
    <message>
        <source>This can&apos;t be read as an address. Example: 192.168.1.20</source>
        <translation>无法识别为地址。示例：192.168.1.20</translation>
    </message>
</context>
<context>
    <name>vemo_client::RecorderColumn</name>
    <message>
        <source>Filter by channel name</source>
        <translation>按通道名称筛选</translation>
    </message>
    <message>
        <source>Add a recorder</source>
        <translation>添加录像机</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>搜索</translation>
    </message>
    <message>
        <source>No channel is chosen</source>
        <translation>未选择通道</translation>
    </message>
</context>
<context>
    <name>vemo_client::RecorderDialog</name>
    <message>
        <source>Keep it offline</source>
        <translation>离线保留</translation>
    </message>
    <message>
        <source>Add a recorder</source>
        <translation>添加录像机</translation>
    </message>
    <message>
        <source>Change the recorder</source>
        <translation>修改录像机</translation>
    </message>
    <message>
        <source>The client logs in at once and keeps the recorder for the next start.</source>
        <translation>客户端将立即登录，并为下次启动保留该录像机。</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>正在连接...</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>添加</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
</context>
<context>
    <name>vemo_client::RecorderForm</name>
    <message>
        <source>Address</source>
        <translation>地址</translation>
    </message>
    <message>
        <source>192.168.1.20 or https://nvr.example/onvif/device_service</source>
        <translation>192.168.1.20 或 https://nvr.example/onvif/device_service</translation>
    </message>
    <message>
        <source>User name</source>
        <translation>用户名</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>密码</translation>
    </message>
    <message>
        <source>Show the password</source>
        <translation>显示密码</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>as the recorder calls itself</source>
        <translation>使用录像机自身的名称</translation>
    </message>
    <message>
        <source>unchanged</source>
        <translation>不变</translation>
    </message>
    <message>
        <source>IP address or name, with a port where it needs one.</source>
        <translation>IP地址或名称，必要时加端口。</translation>
    </message>
    <message>
        <source>Replay address: it has no list of recordings, spans of time can be fetched.</source>
        <translation>回放地址：没有录像列表，可按时间段获取。</translation>
    </message>
    <message>
        <source>ONVIF over %1 at %2</source>
        <translation>ONVIF，经由%1，位于%2</translation>
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
        <translation>信任此密钥</translation>
    </message>
    <message>
        <source>Live view alone</source>
        <translation>仅实时预览</translation>
    </message>
    <message>
        <source>Recordings by time</source>
        <translation>按时间获取录像</translation>
    </message>
    <message>
        <source>Used for</source>
        <translation>用途</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>通道</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>分组</translation>
    </message>
    <message>
        <source>User and password of the address were put into their own fields.</source>
        <translation>地址中的用户名和密码已填入各自的输入框。</translation>
    </message>
    <message>
        <source>A stream to watch: it can&apos;t be played back, downloaded or backed up.</source>
        <translation>仅供观看的码流：无法回放、下载或备份。</translation>
    </message>
    <message>
        <source>Write {channel} in the address where the number of the channel goes.</source>
        <translation>请在地址中填写通道号的位置写入{channel}。</translation>
    </message>
</context>
<context>
    <name>vemo_client::RecorderLogins</name>
    <message>
        <source>The recorder stopped answering.</source>
        <translation>录像机停止应答。</translation>
    </message>
</context>
<context>
    <name>vemo_client::RecorderSession</name>
    <message>
        <source>%1, channel %2</source>
        <translation>%1，通道%2</translation>
    </message>
</context>
<context>
    <name>vemo_client::RecorderTree</name>
    <message>
        <source>Recorders and channels</source>
        <translation>录像机和通道</translation>
    </message>
    <message>
        <source>Search this channel</source>
        <translation>搜索此通道</translation>
    </message>
    <message>
        <source>Log in again</source>
        <translation>重新登录</translation>
    </message>
    <message>
        <source>Change...</source>
        <translation>修改...</translation>
    </message>
    <message>
        <source>Remove...</source>
        <translation>移除...</translation>
    </message>
    <message>
        <source>The recorder is disabled.</source>
        <translation>录像机已停用。</translation>
    </message>
    <message>
        <source>A source for live view alone: it has no recordings.</source>
        <translation>仅供实时预览的来源：没有录像。</translation>
    </message>
    <message>
        <source>Channel %1</source>
        <translation>通道%1</translation>
    </message>
    <message>
        <source>%1, is being played</source>
        <translation>%1，正在播放</translation>
    </message>
</context>
<context>
    <name>vemo_client::RecordersPage</name>
    <message>
        <source>Add your recorders</source>
        <translation>添加您的录像机</translation>
    </message>
    <message>
        <source>The client finds recorders in your network by itself; others are added by their address. Their passwords are kept encrypted on this computer.</source>
        <translation>客户端会自动查找网络中的录像机；其他录像机可按地址添加。其密码加密保存在本机。</translation>
    </message>
    <message>
        <source>Look for recorders</source>
        <translation>查找录像机</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>以后再说</translation>
    </message>
</context>
<context>
    <name>vemo_client::RecordingSearch</name>
    <message>
        <source>The recorder did not answer the search for recordings in time.</source>
        <translation>录像机未及时应答录像搜索。</translation>
    </message>
</context>
<context>
    <name>vemo_client::RecordingsTable</name>
    <message>
        <source>All</source>
        <translation>全部</translation>
    </message>
    <message>
        <source>Channel Name</source>
        <translation>通道名称</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>End</source>
        <translation>结束</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>时长</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Recordings</source>
        <translation>录像</translation>
    </message>
    <message>
        <source>Alarm</source>
        <translation>报警</translation>
    </message>
    <message>
        <source>Continuous</source>
        <translation>连续</translation>
    </message>
</context>
<context>
    <name>vemo_client::RemoveQuestion</name>
    <message>
        <source>%1 and its password are forgotten. Files, finished downloads and finished backups stay; downloads and backups of it that wait or have failed can&apos;t go on.</source>
        <translation>%1及其密码将被移除。文件、已完成的下载和备份会保留；其等待中或失败的下载和备份将无法继续。</translation>
    </message>
    <message>
        <source>%1 recorders and their passwords are forgotten. Files, finished downloads and finished backups stay; downloads and backups of them that wait or have failed can&apos;t go on.</source>
        <translation>%1台录像机及其密码将被移除。文件、已完成的下载和备份会保留；其等待中或失败的下载和备份将无法继续。</translation>
    </message>
    <message>
        <source>Remove the recorder</source>
        <translation>移除录像机</translation>
    </message>
    <message>
        <source>Remove the recorders</source>
        <translation>移除录像机</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>移除</translation>
    </message>
</context>
<context>
    <name>vemo_client::RenameGroupDialog</name>
    <message>
        <source>Rename the group</source>
        <translation>重命名分组</translation>
    </message>
    <message>
        <source>All recorders of the group go along.</source>
        <translation>分组中的所有录像机随之变更。</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>重命名</translation>
    </message>
    <message>
        <source>Name of the group</source>
        <translation>分组名称</translation>
    </message>
    <message>
        <source>There is a group of this name; the two become one.</source>
        <translation>已有同名分组，两个分组将合并。</translation>
    </message>
</context>
<context>
    <name>vemo_client::SearchVerb</name>
    <message>
        <source>Interrupted.</source>
        <translation>已中断。</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>通道</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>End</source>
        <translation>结束</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>alarm</source>
        <translation>报警</translation>
    </message>
    <message>
        <source>normal</source>
        <translation>普通</translation>
    </message>
    <message>
        <source>%1: no recording from %2 to %3.</source>
        <translation>%1：%2至%3没有录像。</translation>
    </message>
</context>
<context>
    <name>vemo_client::SettingsPage</name>
    <message>
        <source>Search settings</source>
        <translation>搜索设置</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>放弃</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1（%2）</translation>
    </message>
    <message>
        <source>Mend what is marked in red, then the changes can be saved.</source>
        <translation>请先更正标红的内容，然后才能保存更改。</translation>
    </message>
    <message>
        <source>1 change not saved</source>
        <translation>1项更改未保存</translation>
    </message>
    <message>
        <source>%1 changes not saved</source>
        <translation>%1项更改未保存</translation>
    </message>
    <message>
        <source>Changes that are not saved</source>
        <translation>未保存的更改</translation>
    </message>
    <message>
        <source>1 change of the settings is not saved. Give it up and go on?</source>
        <translation>有1项设置更改未保存。是否放弃更改并继续？</translation>
    </message>
    <message>
        <source>%1 changes of the settings are not saved. Give them up and go on?</source>
        <translation>有%1项设置更改未保存。是否放弃更改并继续？</translation>
    </message>
    <message>
        <source>These settings concern everybody on this computer. Only users with the power to change settings may change them.</source>
        <translation>这些设置涉及本机所有用户，只有具有设置权限的用户才能修改。</translation>
    </message>
</context>
<context>
    <name>vemo_client::SettingsSections</name>
    <message>
        <source>General</source>
        <translation>常规</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>程序</translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation>跟随桌面</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>Holds from the next start of the client on.</source>
        <translation>客户端下次启动后生效。</translation>
    </message>
    <message>
        <source>When you log in to this computer</source>
        <translation>登录此计算机时</translation>
    </message>
    <message>
        <source>Start the client</source>
        <translation>启动客户端</translation>
    </message>
    <message>
        <source>Logs</source>
        <translation>日志</translation>
    </message>
    <message>
        <source>What is kept of what happened to files</source>
        <translation>文件操作记录的保留</translation>
    </message>
    <message>
        <source>Keep log entries</source>
        <translation>保留日志条目</translation>
    </message>
    <message>
        <source>30 days</source>
        <translation>30天</translation>
    </message>
    <message>
        <source>90 days</source>
        <translation>90天</translation>
    </message>
    <message>
        <source>1 year</source>
        <translation>1年</translation>
    </message>
    <message>
        <source>3 years</source>
        <translation>3年</translation>
    </message>
    <message>
        <source>As long as there is room</source>
        <translation>空间允许时一直保留</translation>
    </message>
    <message>
        <source>Never more than 1,000,000 entries; the oldest go first.</source>
        <translation>最多1,000,000条，最早的先清除。</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1（%2）</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>存储</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>Where files are written</source>
        <translation>文件的写入位置</translation>
    </message>
    <message>
        <source>Download path</source>
        <translation>下载路径</translation>
    </message>
    <message>
        <source>Downloads that run already end where they were begun.</source>
        <translation>正在进行的下载仍保存在原位置。</translation>
    </message>
    <message>
        <source>Recordings backup path</source>
        <translation>录像备份路径</translation>
    </message>
    <message>
        <source>A backup stops when less than 1 GB is free. A notice appears below 10 GB.</source>
        <translation>可用空间不足1 GB时备份停止，低于10 GB时显示通知。</translation>
    </message>
    <message>
        <source>Local recording and snapshot path</source>
        <translation>本地录像和抓图路径</translation>
    </message>
    <message>
        <source>Recordings of live video and snapshots lie in folders of their own below it.</source>
        <translation>实时预览的录像和抓图分别位于其下的文件夹中。</translation>
    </message>
    <message>
        <source>Downloads and backups lie one in the other. Choose folders of their own, so that neither fills the other&apos;s.</source>
        <translation>下载文件夹与备份文件夹相互包含。请选择各自独立的文件夹，以免互相占满空间。</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Names and kinds</source>
        <translation>名称和类型</translation>
    </message>
    <message>
        <source>Date format</source>
        <translation>日期格式</translation>
    </message>
    <message>
        <source>Used in tables, file names and logs.</source>
        <translation>用于表格、文件名和日志。</translation>
    </message>
    <message>
        <source>Snapshot format</source>
        <translation>抓图格式</translation>
    </message>
    <message>
        <source>No limit</source>
        <translation>不限制</translation>
    </message>
    <message>
        <source>%1 GB</source>
        <translation>%1 GB</translation>
    </message>
    <message>
        <source>Largest file</source>
        <translation>最大文件</translation>
    </message>
    <message>
        <source>then the download goes on in a new file</source>
        <translation>达到后在新文件中继续下载</translation>
    </message>
    <message>
        <source>Behaviour</source>
        <translation>行为</translation>
    </message>
    <message>
        <source>When the client starts</source>
        <translation>客户端启动时</translation>
    </message>
    <message>
        <source>Go on with downloads that were waiting</source>
        <translation>继续等待中的下载</translation>
    </message>
    <message>
        <source>When a copy is deleted</source>
        <translation>删除副本时</translation>
    </message>
    <message>
        <source>Move files to the recycle bin where the drive has one</source>
        <translation>磁盘有回收站时将文件移入回收站</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>下载</translation>
    </message>
    <message>
        <source>Network</source>
        <translation>网络</translation>
    </message>
    <message>
        <source>Highest rate</source>
        <translation>最高速率</translation>
    </message>
    <message>
        <source>MB/s</source>
        <translation>MB/s</translation>
    </message>
    <message>
        <source>For all downloads and backups together. Holds at once, for those that run as well.</source>
        <translation>所有下载和备份合计。立即生效，包括正在进行的任务。</translation>
    </message>
    <message>
        <source>Readable time</source>
        <translation>可读时间</translation>
    </message>
    <message>
        <source>Wall clock</source>
        <translation>录像时钟</translation>
    </message>
    <message>
        <source>Add a text track with the recording&apos;s time to every file</source>
        <translation>为每个文件添加记录录像时间的文本轨道</translation>
    </message>
    <message>
        <source>Ordinary players show it as subtitles. The picture itself is not changed.</source>
        <translation>普通播放器会将其显示为字幕，画面本身不变。</translation>
    </message>
    <message>
        <source>Recordings Backup</source>
        <translation>录像备份</translation>
    </message>
    <message>
        <source>Plan</source>
        <translation>计划</translation>
    </message>
    <message>
        <source>What is backed up, and when</source>
        <translation>备份的内容和时间</translation>
    </message>
    <message>
        <source>Times of day</source>
        <translation>备份时段</translation>
    </message>
    <message>
        <source>Days, channels and times of day are chosen on the page Recordings Backup of the Files Center.</source>
        <translation>日期、通道和时段在文件中心的“录像备份”页面选择。</translation>
    </message>
    <message>
        <source>Open Files Center</source>
        <translation>打开文件中心</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>The folder of backups is chosen under Storage.</source>
        <translation>备份文件夹在“存储”中选择。</translation>
    </message>
    <message>
        <source>Open Storage</source>
        <translation>打开“存储”</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>外观</translation>
    </message>
    <message>
        <source>Look</source>
        <translation>显示风格</translation>
    </message>
    <message>
        <source>Yours alone</source>
        <translation>仅对您生效</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>主题</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>深色</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>浅色</translation>
    </message>
    <message>
        <source>Users</source>
        <translation>用户</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>快捷键</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>窗口</translation>
    </message>
    <message>
        <source>Tables</source>
        <translation>表格</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>图片</translation>
    </message>
    <message>
        <source>Player</source>
        <translation>播放器</translation>
    </message>
    <message>
        <source>Notifications</source>
        <translation>通知</translation>
    </message>
    <message>
        <source>In the window</source>
        <translation>窗口内</translation>
    </message>
    <message>
        <source>The bell keeps every notice, shown or not</source>
        <translation>无论是否显示，铃铛中都会保留每条通知</translation>
    </message>
    <message>
        <source>Good news</source>
        <translation>完成</translation>
    </message>
    <message>
        <source>Show a notice when something is done</source>
        <translation>操作完成时显示通知</translation>
    </message>
    <message>
        <source>Warnings</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Show a notice when something needs care</source>
        <translation>有情况需要处理时显示通知</translation>
    </message>
    <message>
        <source>Errors are always shown.</source>
        <translation>错误始终显示。</translation>
    </message>
    <message>
        <source>On the desktop</source>
        <translation>桌面</translation>
    </message>
    <message>
        <source>Tell when the queue is done and the window is not being looked at</source>
        <translation>队列完成且窗口不在前台时提醒</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>版本%1</translation>
    </message>
    <message>
        <source>Places</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Where the client keeps what it knows</source>
        <translation>客户端数据的保存位置</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>数据</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Program log</source>
        <translation>程序日志</translation>
    </message>
    <message>
        <source>Libraries</source>
        <translation>库</translation>
    </message>
    <message>
        <source>The client stands on the work of others</source>
        <translation>客户端使用的第三方成果</translation>
    </message>
</context>
<context>
    <name>vemo_client::ShellWt</name>
    <message>
        <source>The password could not be kept</source>
        <translation>无法保存密码</translation>
    </message>
    <message>
        <source>It holds while the client runs; after the next start it is asked for again.</source>
        <translation>密码仅在客户端运行期间有效；下次启动后将再次要求输入。</translation>
    </message>
    <message>
        <source>Quit Vemo?</source>
        <translation>退出Vemo？</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>1 is in it already.</source>
        <translation>其中1段已在队列中。</translation>
    </message>
    <message>
        <source>%1 are in it already.</source>
        <translation>其中%1段已在队列中。</translation>
    </message>
    <message>
        <source>1 recording was added to the queue</source>
        <translation>已将1段录像加入队列</translation>
    </message>
    <message>
        <source>%1 recordings were added to the queue</source>
        <translation>已将%1段录像加入队列</translation>
    </message>
    <message>
        <source>Up to five are fetched at a time.</source>
        <translation>最多同时获取五段。</translation>
    </message>
    <message>
        <source>Nothing was added to the queue</source>
        <translation>未向队列添加任何内容</translation>
    </message>
    <message>
        <source>Show the queue</source>
        <translation>显示队列</translation>
    </message>
</context>
<context>
    <name>vemo_client::ShortcutsWt</name>
    <message>
        <source>Ctrl</source>
        <translation>Ctrl</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Shift</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>空格</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Del</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Go to the next area: top bar, navigation, tool bar, content, status bar</source>
        <translation>转到下一区域：顶栏、导航、工具栏、内容、状态栏</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Go to the next control in reading order</source>
        <translation>按阅读顺序转到下一控件</translation>
    </message>
    <message>
        <source>Close what lies on top</source>
        <translation>关闭最上层内容</translation>
    </message>
    <message>
        <source>Go from row to row</source>
        <translation>逐行移动</translation>
    </message>
    <message>
        <source>Check or uncheck the row</source>
        <translation>勾选或取消勾选该行</translation>
    </message>
    <message>
        <source>Do the row&apos;s first action</source>
        <translation>执行该行的首个操作</translation>
    </message>
    <message>
        <source>Ask to delete what is checked</source>
        <translation>询问是否删除勾选的内容</translation>
    </message>
    <message>
        <source>Select all rows</source>
        <translation>选择所有行</translation>
    </message>
    <message>
        <source>Go to the filter</source>
        <translation>转到筛选框</translation>
    </message>
    <message>
        <source>Open the row&apos;s menu</source>
        <translation>打开该行的菜单</translation>
    </message>
    <message>
        <source>Go from picture to picture</source>
        <translation>逐张移动</translation>
    </message>
    <message>
        <source>Check or uncheck the picture</source>
        <translation>勾选或取消勾选图片</translation>
    </message>
    <message>
        <source>Open the picture</source>
        <translation>打开图片</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>播放或暂停</translation>
    </message>
    <message>
        <source>One picture back or on</source>
        <translation>后退或前进一帧</translation>
    </message>
    <message>
        <source>10 s back or on</source>
        <translation>后退或前进10秒</translation>
    </message>
    <message>
        <source>Slower or faster</source>
        <translation>减慢或加快</translation>
    </message>
    <message>
        <source>Keep the picture as a snapshot</source>
        <translation>将画面保存为抓图</translation>
    </message>
    <message>
        <source>Full screen on or off</source>
        <translation>开启或关闭全屏</translation>
    </message>
</context>
<context>
    <name>vemo_client::SpanBar</name>
    <message>
        <source>Begin of the span</source>
        <translation>时间段的开始</translation>
    </message>
    <message>
        <source>To</source>
        <translation>至</translation>
    </message>
    <message>
        <source>End of the span</source>
        <translation>时间段的结束</translation>
    </message>
    <message>
        <source>Clear the span</source>
        <translation>清除时间段</translation>
    </message>
    <message>
        <source>The end must lie behind the begin.</source>
        <translation>结束时间必须晚于开始时间。</translation>
    </message>
    <message>
        <source>Dragging on the time line marks a span</source>
        <translation>在时间轴上拖动以标记时间段</translation>
    </message>
    <message>
        <source>End of the span; 00:00:00 means the end of the day</source>
        <translation>时间段的结束；00:00:00表示当天结束</translation>
    </message>
</context>
<context>
    <name>vemo_client::StandingWords</name>
    <message>
        <source>Find recorders on the network</source>
        <translation>在网络中查找录像机</translation>
    </message>
    <message>
        <source>Recorders that speak ONVIF answer by themselves. Choose which to add; all are logged in to with the same user and password, and how each login goes is shown in the list.</source>
        <translation>支持ONVIF的录像机会自动应答。请选择要添加的录像机；全部使用相同的用户名和密码登录，每台的登录情况显示在列表中。</translation>
    </message>
    <message>
        <source>Search again</source>
        <translation>重新搜索</translation>
    </message>
    <message>
        <source>Time of the search</source>
        <translation>搜索时间</translation>
    </message>
    <message>
        <source>Add by address...</source>
        <translation>按地址添加...</translation>
    </message>
    <message>
        <source>All</source>
        <translation>全部</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>型号</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>地址</translation>
    </message>
    <message>
        <source>State</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Recorders that answered</source>
        <translation>已应答的录像机</translation>
    </message>
    <message>
        <source>User name</source>
        <translation>用户名</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>密码</translation>
    </message>
    <message>
        <source>New</source>
        <translation>新</translation>
    </message>
    <message>
        <source>New address</source>
        <translation>新地址</translation>
    </message>
    <message>
        <source>Already added</source>
        <translation>已添加</translation>
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
        <translation>剩余不到1分钟</translation>
    </message>
    <message>
        <source>about %1 min left</source>
        <translation>剩余约%1分钟</translation>
    </message>
    <message>
        <source>about %1 h %2 min left</source>
        <translation>剩余约%1小时%2分</translation>
    </message>
    <message>
        <source>Queue</source>
        <translation>队列</translation>
    </message>
    <message>
        <source>Download queue: %1</source>
        <translation>下载队列：%1</translation>
    </message>
    <message>
        <source>%1 of %2 recorders offline</source>
        <translation>%2台录像机中有%1台离线</translation>
    </message>
    <message>
        <source>Shows the recorder and why it is not logged in</source>
        <translation>显示该录像机及其未登录的原因</translation>
    </message>
    <message>
        <source>What all downloads together receive: %1</source>
        <translation>所有下载的总接收速率：%1</translation>
    </message>
    <message>
        <source>%1 %2 free</source>
        <translation>%1 可用%2</translation>
    </message>
    <message>
        <source>%1 %2 free of %3</source>
        <translation>%1 可用%2，共%3</translation>
    </message>
    <message>
        <source>, full: no download can start</source>
        <translation>，已满：无法开始下载</translation>
    </message>
    <message>
        <source>, full</source>
        <translation>，已满</translation>
    </message>
    <message>
        <source>, nearly full</source>
        <translation>，即将满</translation>
    </message>
    <message>
        <source>%1
Opens the folder of downloads: %2</source>
        <translation>%1
打开下载文件夹：%2</translation>
    </message>
</context>
<context>
    <name>vemo_client::StoredRecorder</name>
    <message>
        <source>The password is missing: give --password-file or set VEMO_PASSWORD.</source>
        <translation>缺少密码：请指定--password-file或设置VEMO_PASSWORD。</translation>
    </message>
    <message>
        <source>The password could not be kept; nothing was added to the queue.</source>
        <translation>无法保存密码；未向队列添加任何内容。</translation>
    </message>
</context>
<context>
    <name>vemo_client::StrengthBar</name>
    <message>
        <source>Weak</source>
        <translation>弱</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>中</translation>
    </message>
    <message>
        <source>Very strong</source>
        <translation>很强</translation>
    </message>
    <message>
        <source>Strong</source>
        <translation>强</translation>
    </message>
    <message>
        <source>Strength of the password: %1</source>
        <translation>密码强度：%1</translation>
    </message>
</context>
<context>
    <name>vemo_client::ThemeButton</name>
    <message>
        <source>Theme</source>
        <translation>主题</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>深色</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>浅色</translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation>跟随桌面</translation>
    </message>
</context>
<context>
    <name>vemo_client::TimeText</name>
    <message>
        <source>&quot;%1&quot; is not a time; write it as 2026-01-10T08:00:00.</source>
        <translation>“%1”不是时间；请写作2026-01-10T08:00:00。</translation>
    </message>
    <message>
        <source>There is no such time as &quot;%1&quot;.</source>
        <translation>不存在“%1”这样的时间。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; does not exist on this computer&apos;s clock: summer time begins then.</source>
        <translation>“%1”在本机时钟上不存在：当时夏令时开始。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has an offset that no place on earth has.</source>
        <translation>“%1”中的时差在任何地区都不存在。</translation>
    </message>
</context>
<context>
    <name>vemo_client::TitledDialog</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>vemo_client::TopBar</name>
    <message>
        <source>Guide</source>
        <translation>使用指南</translation>
    </message>
</context>
<context>
    <name>vemo_client::UserDialog</name>
    <message>
        <source>Add</source>
        <translation>添加</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Add a user</source>
        <translation>添加用户</translation>
    </message>
    <message>
        <source>What %1 may do</source>
        <translation>%1的权限</translation>
    </message>
    <message>
        <source>A new password for %1</source>
        <translation>%1的新密码</translation>
    </message>
    <message>
        <source>Change your password</source>
        <translation>修改您的密码</translation>
    </message>
    <message>
        <source>The user logs in on this computer with this name and password.</source>
        <translation>该用户以此名称和密码在本机登录。</translation>
    </message>
    <message>
        <source>It holds from the next login of %1 on.</source>
        <translation>从%1下次登录起生效。</translation>
    </message>
    <message>
        <source>The old one stops working at once, and a lock after wrong passwords ends.</source>
        <translation>旧密码立即失效，因密码错误导致的锁定随之解除。</translation>
    </message>
    <message>
        <source>Where you stay logged in, the password is asked for once more.</source>
        <translation>在您保持登录的位置，将再次要求输入密码。</translation>
    </message>
    <message>
        <source>User name</source>
        <translation>用户名</translation>
    </message>
    <message>
        <source>Current password</source>
        <translation>当前密码</translation>
    </message>
    <message>
        <source>New password</source>
        <translation>新密码</translation>
    </message>
    <message>
        <source>Repeat the password</source>
        <translation>重复密码</translation>
    </message>
    <message>
        <source>May do</source>
        <translation>权限</translation>
    </message>
    <message>
        <source>The current password is missing.</source>
        <translation>缺少当前密码。</translation>
    </message>
    <message>
        <source>The two passwords differ</source>
        <translation>两次输入的密码不一致</translation>
    </message>
</context>
<context>
    <name>vemo_client::UserMenu</name>
    <message>
        <source>Change password...</source>
        <translation>修改密码...</translation>
    </message>
    <message>
        <source>Log out</source>
        <translation>退出登录</translation>
    </message>
    <message>
        <source>Logged in as %1</source>
        <translation>当前用户：%1</translation>
    </message>
</context>
<context>
    <name>vemo_client::UserRow</name>
    <message>
        <source>What %1 may do</source>
        <translation>%1的权限</translation>
    </message>
    <message>
        <source>A new password for %1</source>
        <translation>%1的新密码</translation>
    </message>
    <message>
        <source>Disable %1</source>
        <translation>停用%1</translation>
    </message>
    <message>
        <source>Enable %1</source>
        <translation>启用%1</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>移除%1</translation>
    </message>
    <message>
        <source>You can&apos;t do that to yourself; another administrator can.</source>
        <translation>不能对自己执行此操作，可由其他管理员执行。</translation>
    </message>
    <message>
        <source>Disabled. %1</source>
        <translation>已停用。%1</translation>
    </message>
    <message>
        <source>%1. Never logged in</source>
        <translation>%1。从未登录</translation>
    </message>
    <message>
        <source>%1. Last login %2</source>
        <translation>%1。上次登录%2</translation>
    </message>
    <message>
        <source>%1 (you)</source>
        <translation>%1（您）</translation>
    </message>
</context>
<context>
    <name>vemo_client::UserVerb</name>
    <message>
        <source>%1 The accounts were kept under another name; they begin anew.</source>
        <translation>%1 账户已以其他名称保留，重新开始建立。</translation>
    </message>
    <message>
        <source>disabled</source>
        <translation>已停用</translation>
    </message>
    <message>
        <source>administrator</source>
        <translation>管理员</translation>
    </message>
    <message>
        <source>powers %1</source>
        <translation>权限 %1</translation>
    </message>
    <message>
        <source>That %1 stays logged in could not be stored.</source>
        <translation>无法保存%1的登录状态。</translation>
    </message>
</context>
<context>
    <name>vemo_client::UserVerbOptions</name>
    <message>
        <source>Name of the user.</source>
        <translation>用户名称。</translation>
    </message>
    <message>
        <source>name</source>
        <translation>name</translation>
    </message>
    <message>
        <source>File whose first line is the user&apos;s password; &quot;-&quot; reads it from the standard input.</source>
        <translation>首行为用户密码的文件；“-”表示从标准输入读取。</translation>
    </message>
    <message>
        <source>file</source>
        <translation>file</translation>
    </message>
    <message>
        <source>What the user may do, of: live, playback, download, recordings, snapshots, devices, logs, settings.</source>
        <translation>用户的权限，可选：live、playback、download、recordings、snapshots、devices、logs、settings。</translation>
    </message>
    <message>
        <source>list</source>
        <translation>list</translation>
    </message>
    <message>
        <source>The user may do everything and manages the others.</source>
        <translation>用户拥有所有权限并管理其他用户。</translation>
    </message>
    <message>
        <source>The window opens for this user without asking for the password.</source>
        <translation>为该用户打开窗口时不要求输入密码。</translation>
    </message>
</context>
<context>
    <name>vemo_client::UsersSettingsWt</name>
    <message>
        <source>Accounts</source>
        <translation>账户</translation>
    </message>
    <message>
        <source>Add a user</source>
        <translation>添加用户</translation>
    </message>
    <message>
        <source>Your password</source>
        <translation>您的密码</translation>
    </message>
    <message>
        <source>You are logged in as %1. A new password holds from now on.</source>
        <translation>您以%1登录。新密码立即生效。</translation>
    </message>
    <message>
        <source>Change password</source>
        <translation>修改密码</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>移除%1</translation>
    </message>
    <message>
        <source>The user can&apos;t log in any more. Downloads, recordings and logs stay.</source>
        <translation>该用户将无法再登录。下载、录像和日志会保留。</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>移除</translation>
    </message>
</context>
<context>
    <name>vemo_client::VerbFolder</name>
    <message>
        <source>The data folder %1 can&apos;t be used.</source>
        <translation>数据文件夹%1无法使用。</translation>
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
        <translation>%1 %2 x %3，%4 fps</translation>
    </message>
    <message>
        <source>Empty tile</source>
        <translation>空画面格</translation>
    </message>
    <message>
        <source>Recording. %1</source>
        <translation>正在录像。%1</translation>
    </message>
</context>
<context>
    <name>vemo_client::ViewNameDialog</name>
    <message>
        <source>Name of the view</source>
        <translation>视图名称</translation>
    </message>
    <message>
        <source>The view needs a name.</source>
        <translation>请输入视图名称。</translation>
    </message>
</context>
<context>
    <name>vemo_client::WindowLock</name>
    <message>
        <source>A window or another run is at work in the data folder %1; close it first.</source>
        <translation>数据文件夹%1正被某个窗口或另一次执行使用；请先将其关闭。</translation>
    </message>
    <message>
        <source>The data folder %1 can&apos;t be used.</source>
        <translation>数据文件夹%1无法使用。</translation>
    </message>
</context>
<context>
    <name>vemo_client::WindowRun</name>
    <message>
        <source>A window is open on the data folder %1 already; it was asked to come to the front.</source>
        <translation>数据文件夹%1已有窗口打开；已请求将其置于前台。</translation>
    </message>
    <message>
        <source>The data folder is in use</source>
        <translation>数据文件夹正在使用</translation>
    </message>
    <message>
        <source>Another vemo_client works on it and shows no window. Wait until it is done, or end it.</source>
        <translation>另一个vemo_client正在使用该文件夹，且未显示窗口。请等待其完成，或将其结束。</translation>
    </message>
</context>
<context>
    <name>vemo_data::Database::Worker</name>
    <message>
        <source>the file is read-only</source>
        <translation>文件为只读</translation>
    </message>
    <message>
        <source>the file can&apos;t be written</source>
        <translation>无法写入文件</translation>
    </message>
    <message>
        <source>The database was written by a newer version. It was set aside as %1 and an empty one begun.</source>
        <translation>数据库由更新的版本写入。已将其另存为 %1，并新建了一个空数据库。</translation>
    </message>
    <message>
        <source>The database was damaged (%1). It was set aside as %2 and an empty one begun.</source>
        <translation>数据库已损坏（%1）。已将其另存为 %2，并新建了一个空数据库。</translation>
    </message>
    <message>
        <source>The database %1 can&apos;t be opened: %2. Changes are not kept.</source>
        <translation>无法打开数据库 %1：%2。更改将不会保存。</translation>
    </message>
    <message>
        <source>A change could not be saved in %1: %2</source>
        <translation>无法将更改保存到 %1：%2</translation>
    </message>
    <message>
        <source>the database refused it</source>
        <translation>数据库拒绝了该更改</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::AddBackupTasksToolWt</name>
    <message>
        <source>Add backup tasks</source>
        <translation>添加备份任务</translation>
    </message>
    <message>
        <source>Please Select The Backup Channels</source>
        <translation>请选择备份通道</translation>
    </message>
    <message>
        <source>Tips:Only support Nuvira 2.0 device to backup</source>
        <translation>提示：仅支持备份Nuvira 2.0设备</translation>
    </message>
    <message>
        <source>Please Set The Backup Time Segments</source>
        <translation>请设置备份时段</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>添加</translation>
    </message>
    <message>
        <source>for %1</source>
        <translation>%1</translation>
    </message>
    <message>
        <source>1 channel selected</source>
        <translation>已选1个通道</translation>
    </message>
    <message>
        <source>%1 channels selected</source>
        <translation>已选%1个通道</translation>
    </message>
    <message>
        <source>%1 of %2 tasks on this day</source>
        <translation>当日任务%1/%2</translation>
    </message>
    <message>
        <source>Please select Nuvira 2.0 device channels</source>
        <translation>请选择Nuvira 2.0设备的通道</translation>
    </message>
    <message>
        <source>A maximum of %1 tasks can be added in one day, %2 have been added,%3 to be added, please reduce the selected channels</source>
        <translation>一天最多可添加%1个任务，已添加%2个，待添加%3个，请减少所选通道</translation>
    </message>
    <message>
        <source>Please set backup time segments</source>
        <translation>请设置备份时段</translation>
    </message>
    <message>
        <source>Failed to add backup tasks</source>
        <translation>添加备份任务失败</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupAxisWt</name>
    <message>
        <source>Time segment</source>
        <translation>时段</translation>
    </message>
    <message>
        <source>Backed up</source>
        <translation>已备份</translation>
    </message>
    <message>
        <source>No recording</source>
        <translation>无录像</translation>
    </message>
    <message>
        <source>On the recorder</source>
        <translation>录像机上</translation>
    </message>
    <message>
        <source>Alarm</source>
        <translation>报警</translation>
    </message>
    <message>
        <source>Time axis</source>
        <translation>时间轴</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupDeviceCheck</name>
    <message>
        <source>Failed to start backup:device offline</source>
        <translation>启动备份失败：设备离线</translation>
    </message>
    <message>
        <source>Failed to start backup:device uses weak password</source>
        <translation>启动备份失败：设备使用弱密码</translation>
    </message>
    <message>
        <source>Failed to start backup:wrong user name or password for connecting device</source>
        <translation>启动备份失败：连接设备的用户名或密码错误</translation>
    </message>
    <message>
        <source>Failed to start backup:the connection limit of the device has been reached</source>
        <translation>启动备份失败：已达到设备的连接数上限</translation>
    </message>
    <message>
        <source>Failed to start backup:device uses default password</source>
        <translation>启动备份失败：设备使用默认密码</translation>
    </message>
    <message>
        <source>Failed to start backup:device not active</source>
        <translation>启动备份失败：设备未激活</translation>
    </message>
    <message>
        <source>Failed to start backup:device login is locked</source>
        <translation>启动备份失败：设备登录已锁定</translation>
    </message>
    <message>
        <source>Failed to start backup:the login limit of the device has been reached</source>
        <translation>启动备份失败：已达到设备的登录数上限</translation>
    </message>
    <message>
        <source>Failed to start backup:device relay connection broken</source>
        <translation>启动备份失败：设备中继连接中断</translation>
    </message>
    <message>
        <source>Failed to start backup:device status unknown</source>
        <translation>启动备份失败：设备状态未知</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupExport</name>
    <message>
        <source>Select Export Path</source>
        <translation>选择导出路径</translation>
    </message>
    <message>
        <source>No backup files available for export</source>
        <translation>没有可导出的备份文件</translation>
    </message>
    <message>
        <source>Files can&apos;t be written to %1, please select another folder</source>
        <translation>无法将文件写入%1，请选择其他文件夹</translation>
    </message>
    <message>
        <source>Disk not detected, please try again later, disk name:%1</source>
        <translation>未检测到磁盘，请稍后重试，磁盘名称：%1</translation>
    </message>
    <message>
        <source>The disk space is insufficient, total file size:%1M, disk free space:%2M, disk name:%3</source>
        <translation>磁盘空间不足，文件总大小：%1M，磁盘可用空间：%2M，磁盘名称：%3</translation>
    </message>
    <message>
        <source>Failed to export file:%1</source>
        <translation>导出文件失败：%1</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>及另外%1个</translation>
    </message>
    <message>
        <source>Export backup files finished, files total count:%1, success count:%2, failure count:%3</source>
        <translation>备份文件导出完成，文件总数：%1，成功：%2，失败：%3</translation>
    </message>
    <message>
        <source>Export backup files cancelled, files that were exported before:%1</source>
        <translation>备份文件导出已取消，此前已导出的文件：%1</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupLegendWt</name>
    <message>
        <source>Time segment</source>
        <translation>时段</translation>
    </message>
    <message>
        <source>Backed up</source>
        <translation>已备份</translation>
    </message>
    <message>
        <source>No recording</source>
        <translation>无录像</translation>
    </message>
    <message>
        <source>On the recorder</source>
        <translation>录像机上</translation>
    </message>
    <message>
        <source>Alarm</source>
        <translation>报警</translation>
    </message>
    <message>
        <source>Now, %1</source>
        <translation>现在，%1</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupSearch</name>
    <message>
        <source>Failed to search video recordings(%1)</source>
        <translation>搜索录像失败（%1）</translation>
    </message>
    <message>
        <source>Non-video recordings</source>
        <translation>非视频录像</translation>
    </message>
    <message>
        <source>Query video recording timeout</source>
        <translation>查询录像超时</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupTargetDay</name>
    <message>
        <source>Days with backup tasks</source>
        <translation>有备份任务的日期</translation>
    </message>
    <message>
        <source>The backup tasks are those of %1, please select another day</source>
        <translation>这些备份任务属于%1，请选择其他日期</translation>
    </message>
    <message>
        <source>A maximum of %1 tasks can be added in one day, %2 have been added,%3 to be added, please select another day</source>
        <translation>一天最多可添加%1个任务，已添加%2个，待添加%3个，请选择其他日期</translation>
    </message>
    <message>
        <source>Apply backup tasks to %1 success</source>
        <translation>备份任务已应用到%1</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupTaskTimeAxisWt</name>
    <message>
        <source>start backup</source>
        <translation>启动备份</translation>
    </message>
    <message>
        <source>export backup files</source>
        <translation>导出备份文件</translation>
    </message>
    <message>
        <source>delete backup task</source>
        <translation>删除备份任务</translation>
    </message>
    <message>
        <source>apply to other day</source>
        <translation>应用到其他日期</translation>
    </message>
    <message>
        <source>%1(Not Exist)</source>
        <translation>%1（不存在）</translation>
    </message>
    <message>
        <source>Do you want to delete the video recording backup task?</source>
        <translation>是否删除该录像备份任务？</translation>
    </message>
    <message>
        <source>not searched yet</source>
        <translation>尚未搜索</translation>
    </message>
    <message>
        <source>nothing recorded</source>
        <translation>无录像</translation>
    </message>
    <message>
        <source>%1 safe</source>
        <translation>%1已备份</translation>
    </message>
    <message>
        <source>A start searches what the recorder holds</source>
        <translation>启动后将搜索录像机上的内容</translation>
    </message>
    <message>
        <source>The recorder held nothing of these times when it was last searched</source>
        <translation>上次搜索时，录像机上没有这些时段的录像</translation>
    </message>
    <message>
        <source>%1 that the recorder holds is in files here</source>
        <translation>录像机上的录像有%1已保存为本机文件</translation>
    </message>
    <message>
        <source>Exporting, %1%</source>
        <translation>正在导出，%1%</translation>
    </message>
    <message>
        <source>Searching recordings</source>
        <translation>正在搜索录像</translation>
    </message>
    <message>
        <source>Running, %1%</source>
        <translation>进行中，%1%</translation>
    </message>
    <message>
        <source>Finished</source>
        <translation>已完成</translation>
    </message>
    <message>
        <source>Waiting</source>
        <translation>等待中</translation>
    </message>
    <message>
        <source>Not started</source>
        <translation>未启动</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>已停止</translation>
    </message>
    <message>
        <source>%1, %2, %3</source>
        <translation>%1，%2，%3</translation>
    </message>
    <message>
        <source>channel no longer exists</source>
        <translation>通道已不存在</translation>
    </message>
    <message>
        <source>stop backup</source>
        <translation>停止备份</translation>
    </message>
    <message>
        <source>cancel the export</source>
        <translation>取消导出</translation>
    </message>
    <message>
        <source>Retry at %1</source>
        <translation>%1重试</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupTimeSegmentWt</name>
    <message>
        <source>Time Segment 1</source>
        <translation>时段1</translation>
    </message>
    <message>
        <source>delete time segment</source>
        <translation>删除时段</translation>
    </message>
    <message>
        <source>To</source>
        <translation>至</translation>
    </message>
    <message>
        <source>Time Segment %1</source>
        <translation>时段%1</translation>
    </message>
    <message>
        <source>%1, start</source>
        <translation>%1，开始</translation>
    </message>
    <message>
        <source>%1, end</source>
        <translation>%1，结束</translation>
    </message>
    <message>
        <source>This segment starts after its end: it holds no recording. Let it end at 23:59 and add another one from 00:00.</source>
        <translation>该时段的开始晚于结束，不包含任何录像。请将结束设为23:59，并另外添加一个从00:00开始的时段。</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupTimeSegmentsSettingWt</name>
    <message>
        <source>add time segment</source>
        <translation>添加时段</translation>
    </message>
    <message>
        <source>%1 of %2 segments. Overlapping ones are merged.</source>
        <translation>%1/%2个时段。重叠的时段会合并。</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::BackupWorker</name>
    <message>
        <source>Waiting for backup...</source>
        <translation>等待备份...</translation>
    </message>
    <message>
        <source>Backup is abnormal,the backup will be attempted again later</source>
        <translation>备份异常，稍后将重试备份</translation>
    </message>
    <message>
        <source>The folder for backups, %1, is not there or lies on another disk, the backup will be attempted again later</source>
        <translation>备份文件夹%1不存在或位于其他磁盘，稍后将重试备份</translation>
    </message>
    <message>
        <source>The backup time is later than the current time, no video recordings can be backed up</source>
        <translation>备份时间晚于当前时间，没有可备份的录像</translation>
    </message>
    <message>
        <source>The disk free space &lt; 1GB,please switch the disk to continue the backup</source>
        <translation>磁盘可用空间 &lt; 1GB，请更换磁盘后继续备份</translation>
    </message>
    <message>
        <source>The backup limit of he device has been reached, the backup will be attempted again later</source>
        <translation>已达到设备的备份上限，稍后将重试备份</translation>
    </message>
    <message>
        <source>stop back up, stop time:%1</source>
        <translation>停止备份，停止时间：%1</translation>
    </message>
    <message>
        <source>delete back up task, back up date:%1</source>
        <translation>删除备份任务，备份日期：%1</translation>
    </message>
    <message>
        <source>No video recording</source>
        <translation>没有录像</translation>
    </message>
    <message>
        <source>Video recording backup success</source>
        <translation>录像备份成功</translation>
    </message>
    <message>
        <source>%1, time range:%2 %3~%4</source>
        <translation>%1，时间范围：%2 %3~%4</translation>
    </message>
    <message>
        <source>start back up, start time:%1</source>
        <translation>启动备份，启动时间：%1</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::ChannelSnapImagesWt</name>
    <message>
        <source>1 snapshot</source>
        <translation>1张抓图</translation>
    </message>
    <message>
        <source>%1 snapshots</source>
        <translation>%1张抓图</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::DevRecordingsBackupPage</name>
    <message>
        <source>Recordings Backup</source>
        <translation>录像备份</translation>
    </message>
    <message>
        <source>Days with backup tasks</source>
        <translation>有备份任务的日期</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>日期</translation>
    </message>
    <message>
        <source>Day before</source>
        <translation>前一天</translation>
    </message>
    <message>
        <source>Next day</source>
        <translation>后一天</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>添加</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>启动</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>导出</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>应用</translation>
    </message>
    <message>
        <source>Exporting backup files, please wait a moment</source>
        <translation>正在导出备份文件，请稍候</translation>
    </message>
    <message>
        <source>Exporting backup files, please check other backup tasks after the export is finished</source>
        <translation>正在导出备份文件，请在导出完成后查看其他备份任务</translation>
    </message>
    <message>
        <source>No backup task on %1</source>
        <translation>%1没有备份任务</translation>
    </message>
    <message>
        <source>A maximum of %1 tasks can be added in one day</source>
        <translation>一天最多可添加%1个任务</translation>
    </message>
    <message>
        <source>Do you want to delete all the backup tasks on %1?</source>
        <translation>是否删除%1的所有备份任务？</translation>
    </message>
    <message>
        <source>1 task</source>
        <translation>1个任务</translation>
    </message>
    <message>
        <source>%1 tasks</source>
        <translation>%1个任务</translation>
    </message>
    <message>
        <source>%1, %2 safe</source>
        <translation>%1，%2已备份</translation>
    </message>
    <message>
        <source>No backup is planned for %1.</source>
        <translation>%1没有计划备份。</translation>
    </message>
    <message>
        <source>Press Add to pick channels and time segments.</source>
        <translation>点击“添加”选择通道和时段。</translation>
    </message>
    <message>
        <source>Cancel the export</source>
        <translation>取消导出</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::DownloadAccess</name>
    <message>
        <source>No download recording permission, please contact the administrator</source>
        <translation>没有下载录像的权限，请联系管理员</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::DownloadStateWt</name>
    <message>
        <source>pause</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>waiting download...</source>
        <translation>等待下载...</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::DownloadingOperWt</name>
    <message>
        <source>start downloading</source>
        <translation>开始下载</translation>
    </message>
    <message>
        <source>clean the task</source>
        <translation>清除任务</translation>
    </message>
    <message>
        <source>open folder</source>
        <translation>打开文件夹</translation>
    </message>
    <message>
        <source>stop downloading</source>
        <translation>停止下载</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::DownloadingRows</name>
    <message>
        <source>waiting download...</source>
        <translation>等待下载...</translation>
    </message>
    <message>
        <source>pause</source>
        <translation>暂停</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::DownloadingTable</name>
    <message>
        <source>Downloading</source>
        <translation>正在下载</translation>
    </message>
    <message>
        <source>Nothing is being downloaded.</source>
        <translation>没有正在进行的下载。</translation>
    </message>
    <message>
        <source>Mark a span in Playback and press Download.</source>
        <translation>在“回放”中标记时间段，然后点击“下载”。</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>空格</translation>
    </message>
    <message>
        <source>check</source>
        <translation>勾选</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>start or stop</source>
        <translation>开始或停止</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Del</translation>
    </message>
    <message>
        <source>clean the task</source>
        <translation>清除任务</translation>
    </message>
    <message>
        <source>All</source>
        <translation>全部</translation>
    </message>
    <message>
        <source>Channel Name</source>
        <translation>通道名称</translation>
    </message>
    <message>
        <source>Datetime Range</source>
        <translation>时间范围</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Download Progress</source>
        <translation>下载进度</translation>
    </message>
    <message>
        <source>Oper</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>Batch Start</source>
        <translation>批量开始</translation>
    </message>
    <message>
        <source>Batch Stop</source>
        <translation>批量停止</translation>
    </message>
    <message>
        <source>Batch Cancel</source>
        <translation>批量取消</translation>
    </message>
    <message>
        <source>Download path does not exist, please configure available download path in system configuration</source>
        <translation>下载路径不存在，请在系统设置中配置可用的下载路径</translation>
    </message>
    <message>
        <source>downloading break off, disk free space &lt; 1GB, disk name:%1</source>
        <translation>下载中断，磁盘可用空间 &lt; 1GB，磁盘名称：%1</translation>
    </message>
    <message>
        <source>please check tasks to start</source>
        <translation>请勾选要开始的任务</translation>
    </message>
    <message>
        <source>please check tasks to stop</source>
        <translation>请勾选要停止的任务</translation>
    </message>
    <message>
        <source>please check tasks to cancel</source>
        <translation>请勾选要取消的任务</translation>
    </message>
    <message>
        <source>Do you want to cancel checked tasks?</source>
        <translation>是否取消勾选的任务？</translation>
    </message>
    <message>
        <source>file does not exist</source>
        <translation>文件不存在</translation>
    </message>
    <message>
        <source>%1 running, %2 waiting, %3 paused.</source>
        <translation>%1个进行中，%2个等待，%3个暂停。</translation>
    </message>
    <message>
        <source>About %1 left.</source>
        <translation>剩余约%1。</translation>
    </message>
    <message>
        <source>Less than a minute left.</source>
        <translation>剩余不到1分钟。</translation>
    </message>
    <message>
        <source>about %1 left</source>
        <translation>剩余约%1</translation>
    </message>
    <message>
        <source>Being started</source>
        <translation>正在启动</translation>
    </message>
    <message>
        <source>Waits for one of five places</source>
        <translation>等待空出一个下载位（共五个）</translation>
    </message>
    <message>
        <source>The channel no longer exists in this client</source>
        <translation>该通道在本客户端中已不存在</translation>
    </message>
    <message>
        <source>start downloading</source>
        <translation>开始下载</translation>
    </message>
    <message>
        <source>stop downloading</source>
        <translation>停止下载</translation>
    </message>
    <message>
        <source>open folder</source>
        <translation>打开文件夹</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>详情</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::EmptyPage</name>
    <message>
        <source>This page comes with a later version.</source>
        <translation>此页面将在后续版本中提供。</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::EndedTasksTable</name>
    <message>
        <source>All</source>
        <translation>全部</translation>
    </message>
    <message>
        <source>Channel Name</source>
        <translation>通道名称</translation>
    </message>
    <message>
        <source>Datetime Range</source>
        <translation>时间范围</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Oper</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>please check tasks to clean</source>
        <translation>请勾选要清除的任务</translation>
    </message>
    <message>
        <source>Do you want to clean checked tasks?</source>
        <translation>是否清除勾选的任务？</translation>
    </message>
    <message>
        <source>Batch Delete</source>
        <translation>批量删除</translation>
    </message>
    <message>
        <source>clean the task</source>
        <translation>清除任务</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>详情</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::ExportBackupFiles</name>
    <message>
        <source>%1 is not any more what it was when it was backed up.</source>
        <translation>%1与备份时的内容已不一致。</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::FailedOperWt</name>
    <message>
        <source>redownload</source>
        <translation>重新下载</translation>
    </message>
    <message>
        <source>clean the task</source>
        <translation>清除任务</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::FailedTable</name>
    <message>
        <source>Download Failure</source>
        <translation>下载失败</translation>
    </message>
    <message>
        <source>No download has failed.</source>
        <translation>没有失败的下载。</translation>
    </message>
    <message>
        <source>What fails is kept here until it is fetched or cleaned.</source>
        <translation>失败的任务会保留在此，直至重新获取或被清除。</translation>
    </message>
    <message>
        <source>What may pass is tried again after about a minute.</source>
        <translation>可能自行恢复的任务约1分钟后重试。</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>空格</translation>
    </message>
    <message>
        <source>check</source>
        <translation>勾选</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>redownload</source>
        <translation>重新下载</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Del</translation>
    </message>
    <message>
        <source>clean the task</source>
        <translation>清除任务</translation>
    </message>
    <message>
        <source>State</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Batch Redownload</source>
        <translation>批量重新下载</translation>
    </message>
    <message>
        <source>Batch Delete</source>
        <translation>批量删除</translation>
    </message>
    <message>
        <source>please check tasks to redownload</source>
        <translation>请勾选要重新下载的任务</translation>
    </message>
    <message numerus="yes">
        <source>%n task(s), newest first</source>
        <translation>
            <numerusform>%n个任务，最新在前</numerusform>
        </translation>
    </message>
    <message>
        <source>The channel no longer exists in this client, so it can&apos;t be tried again.</source>
        <translation>该通道在本客户端中已不存在，因此无法重试。</translation>
    </message>
    <message>
        <source>Retry in %1.</source>
        <translation>%1后重试。</translation>
    </message>
    <message>
        <source>Check user and password of the recorder, then press &quot;redownload&quot;.</source>
        <translation>请检查录像机的用户名和密码，然后点击“重新下载”。</translation>
    </message>
    <message>
        <source>It is not tried again by itself: press &quot;redownload&quot;.</source>
        <translation>不会自动重试：请点击“重新下载”。</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::FileVerifier</name>
    <message>
        <source>It had %L1 bytes when it was finished and has %L2 now</source>
        <translation>完成时为%L1字节，现在为%L2字节</translation>
    </message>
    <message>
        <source>Its length is the same, its content is not</source>
        <translation>文件大小相同，但内容不同</translation>
    </message>
    <message>
        <source>Its length is the same, its content is not: the first change is between byte %L1 and byte %L2</source>
        <translation>文件大小相同，但内容不同：第一处差异位于字节%L1与字节%L2之间</translation>
    </message>
    <message>
        <source>%1 is what was downloaded: its SHA-256 is the one kept when it was finished.</source>
        <translation>%1与下载时一致：其SHA-256与完成时保存的值相同。</translation>
    </message>
    <message>
        <source>%1 is not what was downloaded. %2. Download it again if the recorder still has it.</source>
        <translation>%1与下载时不一致。%2。如果录像机上仍有该录像，请重新下载。</translation>
    </message>
    <message>
        <source>%1 is not there any more, so nothing can be compared.</source>
        <translation>%1已不存在，无法比对。</translation>
    </message>
    <message>
        <source>No SHA-256 of %1 was kept when it was finished. Its present one is kept from now on.</source>
        <translation>%1完成时未保存SHA-256。现以当前值保存。</translation>
    </message>
    <message>
        <source>%1 can&apos;t be verified: %2</source>
        <translation>无法校验%1：%2</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::FilesCenterForm</name>
    <message>
        <source>FilesCenterForm</source>
        <translation>FilesCenterForm</translation>
    </message>
    <message>
        <source>Download Mgr</source>
        <translation>下载管理</translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation>正在下载</translation>
    </message>
    <message>
        <source>Download Success</source>
        <translation>下载成功</translation>
    </message>
    <message>
        <source>Download Failure</source>
        <translation>下载失败</translation>
    </message>
    <message>
        <source>Local Recording</source>
        <translation>本地录像</translation>
    </message>
    <message>
        <source>Local Snapshot</source>
        <translation>本地抓图</translation>
    </message>
    <message>
        <source>Local Files</source>
        <translation>本地文件</translation>
    </message>
    <message>
        <source>Recordings Backup</source>
        <translation>录像备份</translation>
    </message>
    <message>
        <source>Downloading(%1)</source>
        <translation>正在下载(%1)</translation>
    </message>
    <message>
        <source>Download Success(%1)</source>
        <translation>下载成功(%1)</translation>
    </message>
    <message>
        <source>Download Failure(%1)</source>
        <translation>下载失败(%1)</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalFilesMgrPage</name>
    <message>
        <source>Files Directory</source>
        <translation>文件目录</translation>
    </message>
    <message>
        <source>Open Dir</source>
        <translation>打开目录</translation>
    </message>
    <message>
        <source>Filter by name</source>
        <translation>按名称筛选</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Save AS</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>Local Files</source>
        <translation>本地文件</translation>
    </message>
    <message>
        <source>There are no recordings or images in this folder.</source>
        <translation>此文件夹中没有录像或图片。</translation>
    </message>
    <message>
        <source>Files ending in mp4, jpg or png are shown. Open another folder.</source>
        <translation>仅显示扩展名为mp4、jpg或png的文件。请打开其他文件夹。</translation>
    </message>
    <message>
        <source>No file matches the filter.</source>
        <translation>没有文件符合筛选条件。</translation>
    </message>
    <message>
        <source>The filter looks for a part of the file&apos;s name.</source>
        <translation>按文件名的一部分筛选。</translation>
    </message>
    <message>
        <source>Clear the filter</source>
        <translation>清除筛选</translation>
    </message>
    <message>
        <source>This folder is no longer there.</source>
        <translation>此文件夹已不存在。</translation>
    </message>
    <message>
        <source>It was removed, or its disk is not connected. Open another folder.</source>
        <translation>文件夹已被移除，或其磁盘未连接。请打开其他文件夹。</translation>
    </message>
    <message>
        <source>Failed to delete file</source>
        <translation>删除文件失败</translation>
    </message>
    <message>
        <source>Saving As:%1%</source>
        <translation>正在另存：%1%</translation>
    </message>
    <message>
        <source>Save file as successful</source>
        <translation>文件另存成功</translation>
    </message>
    <message>
        <source>Save file as failure</source>
        <translation>文件另存失败</translation>
    </message>
    <message>
        <source>Open Directory</source>
        <translation>打开目录</translation>
    </message>
    <message>
        <source>Please select a file to delete</source>
        <translation>请选择要删除的文件</translation>
    </message>
    <message>
        <source>Do you want to delete file:%1?</source>
        <translation>是否删除文件：%1？</translation>
    </message>
    <message>
        <source>Please select a file to save as</source>
        <translation>请选择要另存的文件</translation>
    </message>
    <message>
        <source>Video(*.mp4)</source>
        <translation>视频(*.mp4)</translation>
    </message>
    <message>
        <source>Images(*.jpg *.png)</source>
        <translation>图片(*.jpg *.png)</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>在文件夹中显示</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>%1: %2, %3</source>
        <translation>%1：%2，%3</translation>
    </message>
    <message>
        <source>1 file</source>
        <translation>1个文件</translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation>%1个文件</translation>
    </message>
    <message>
        <source>1 video</source>
        <translation>1个视频</translation>
    </message>
    <message>
        <source>%1 videos</source>
        <translation>%1个视频</translation>
    </message>
    <message>
        <source>1 image</source>
        <translation>1张图片</translation>
    </message>
    <message>
        <source>%1 images</source>
        <translation>%1张图片</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalFilesSaveAs</name>
    <message>
        <source>Select Save As Path</source>
        <translation>选择另存路径</translation>
    </message>
    <message>
        <source>Saving As:%1/%2(%3%)</source>
        <translation>正在另存：%1/%2（%3%）</translation>
    </message>
    <message>
        <source>Save as file failed:%1(%2)</source>
        <translation>文件另存失败：%1（%2）</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>及另外%1个</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalRecordingOperWt</name>
    <message>
        <source>open the file</source>
        <translation>打开文件</translation>
    </message>
    <message>
        <source>open folder</source>
        <translation>打开文件夹</translation>
    </message>
    <message>
        <source>delete file</source>
        <translation>删除文件</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalRecordingRows</name>
    <message>
        <source>Damaged</source>
        <translation>已损坏</translation>
    </message>
    <message>
        <source>The file does not tell its time. This one comes from when it was last written.</source>
        <translation>文件中未注明时间，此时间取自文件的最后写入时间。</translation>
    </message>
    <message>
        <source>Missing</source>
        <translation>缺失</translation>
    </message>
    <message>
        <source>file does not exist</source>
        <translation>文件不存在</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalRecordingsMgrPage</name>
    <message>
        <source>Time Space Sel</source>
        <translation>时间段选择</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>搜索</translation>
    </message>
    <message>
        <source>Filter by channel name</source>
        <translation>按通道名称筛选</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Save AS</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>All</source>
        <translation>全部</translation>
    </message>
    <message>
        <source>Channel Name</source>
        <translation>通道名称</translation>
    </message>
    <message>
        <source>Start Time</source>
        <translation>开始时间</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>Oper</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>Local Recording</source>
        <translation>本地录像</translation>
    </message>
    <message>
        <source>There are no recordings in this span.</source>
        <translation>该时间段内没有录像。</translation>
    </message>
    <message>
        <source>What live view records appears here. Choose another span, or look for files that came into the folder another way.</source>
        <translation>实时预览的录像会显示在这里。请选择其他时间段，或查找以其他方式进入文件夹的文件。</translation>
    </message>
    <message>
        <source>Look for new files</source>
        <translation>查找新文件</translation>
    </message>
    <message>
        <source>No recording matches the filter.</source>
        <translation>没有录像符合筛选条件。</translation>
    </message>
    <message>
        <source>The filter looks for a part of the channel&apos;s name.</source>
        <translation>按通道名称的一部分筛选。</translation>
    </message>
    <message>
        <source>Clear the filter</source>
        <translation>清除筛选</translation>
    </message>
    <message>
        <source>searching local recordings...</source>
        <translation>正在搜索本地录像...</translation>
    </message>
    <message>
        <source>Looking for new files...</source>
        <translation>正在查找新文件...</translation>
    </message>
    <message>
        <source>The first %L1 of this span; choose a shorter one to see all</source>
        <translation>该时间段的前%L1条；选择较短的时间段可查看全部</translation>
    </message>
    <message>
        <source>Video kept on this computer while live view recorded</source>
        <translation>实时预览时录制并保存在本机的视频</translation>
    </message>
    <message>
        <source>search none local recordings</source>
        <translation>未搜索到本地录像</translation>
    </message>
    <message>
        <source>file does not exist</source>
        <translation>文件不存在</translation>
    </message>
    <message>
        <source>open the file</source>
        <translation>打开文件</translation>
    </message>
    <message>
        <source>open folder</source>
        <translation>打开文件夹</translation>
    </message>
    <message>
        <source>delete file</source>
        <translation>删除文件</translation>
    </message>
    <message>
        <source>Copy path</source>
        <translation>复制路径</translation>
    </message>
    <message>
        <source>Delete checked</source>
        <translation>删除勾选项</translation>
    </message>
    <message>
        <source>Save checked as</source>
        <translation>另存勾选项</translation>
    </message>
    <message>
        <source>Please select local recordings to save as</source>
        <translation>请选择要另存的本地录像</translation>
    </message>
    <message>
        <source>Do you want to delete the recording:%1(%2)?</source>
        <translation>是否删除录像：%1（%2）？</translation>
    </message>
    <message>
        <source>Please select local recordings to delete</source>
        <translation>请选择要删除的本地录像</translation>
    </message>
    <message>
        <source>Do you want to delete select local recordings?</source>
        <translation>是否删除所选本地录像？</translation>
    </message>
    <message>
        <source>delete local recordings...</source>
        <translation>正在删除本地录像...</translation>
    </message>
    <message>
        <source>Failed to delete local recordings</source>
        <translation>删除本地录像失败</translation>
    </message>
    <message>
        <source>Record begin time:%1,file size:%2</source>
        <translation>录像开始时间：%1，文件大小：%2</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>及另外%1个</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalSnapImageCard</name>
    <message>
        <source>enlarge</source>
        <translation>放大</translation>
    </message>
    <message>
        <source>save as</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Do you want to delete the snap image?</source>
        <translation>是否删除该抓图？</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>Images(*.bmp)</source>
        <translation>图片(*.bmp)</translation>
    </message>
    <message>
        <source>Images (*.jpg)</source>
        <translation>图片 (*.jpg)</translation>
    </message>
    <message>
        <source>This image can&apos;t be read</source>
        <translation>无法读取该图片</translation>
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
        <translation>放大</translation>
    </message>
    <message>
        <source>save as</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>open folder</source>
        <translation>打开文件夹</translation>
    </message>
    <message>
        <source>Copy path</source>
        <translation>复制路径</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::LocalSnapImagesMgrPage</name>
    <message>
        <source>Time Space Sel</source>
        <translation>时间段选择</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>搜索</translation>
    </message>
    <message>
        <source>Filter by channel name</source>
        <translation>按通道名称筛选</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Save AS</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>Capture time:%1</source>
        <translation>抓图时间：%1</translation>
    </message>
    <message>
        <source>Failed to delete snap images</source>
        <translation>删除抓图失败</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>及另外%n个</numerusform>
        </translation>
    </message>
    <message>
        <source>Local Snapshot</source>
        <translation>本地抓图</translation>
    </message>
    <message>
        <source>There are no snapshots in this span.</source>
        <translation>该时间段内没有抓图。</translation>
    </message>
    <message>
        <source>What is captured in live view or the player appears here. Choose another span, or search again.</source>
        <translation>在实时预览或播放器中的抓图会显示在这里。请选择其他时间段，或重新搜索。</translation>
    </message>
    <message>
        <source>Search again</source>
        <translation>重新搜索</translation>
    </message>
    <message>
        <source>No channel matches the filter.</source>
        <translation>没有通道符合筛选条件。</translation>
    </message>
    <message>
        <source>The filter looks for a part of the channel&apos;s name.</source>
        <translation>按通道名称的一部分筛选。</translation>
    </message>
    <message>
        <source>Clear the filter</source>
        <translation>清除筛选</translation>
    </message>
    <message>
        <source>search none local snap images</source>
        <translation>未搜索到本地抓图</translation>
    </message>
    <message>
        <source>please select snap images to delete</source>
        <translation>请选择要删除的抓图</translation>
    </message>
    <message>
        <source>Do you want to delete selected snap images?</source>
        <translation>是否删除所选抓图？</translation>
    </message>
    <message>
        <source>Please select snap images to save as</source>
        <translation>请选择要另存的抓图</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1/%2</translation>
    </message>
    <message>
        <source>1 snapshot</source>
        <translation>1张抓图</translation>
    </message>
    <message>
        <source>%1 snapshots</source>
        <translation>%1张抓图</translation>
    </message>
    <message>
        <source>1 channel</source>
        <translation>1个通道</translation>
    </message>
    <message>
        <source>%1 channels</source>
        <translation>%1个通道</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::RecordingsBackUpTree</name>
    <message>
        <source>no replay</source>
        <translation>无回放</translation>
    </message>
    <message>
        <source>disabled</source>
        <translation>已停用</translation>
    </message>
    <message>
        <source>live view alone</source>
        <translation>仅实时预览</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::SuccessOperWt</name>
    <message>
        <source>open the file</source>
        <translation>打开文件</translation>
    </message>
    <message>
        <source>open folder</source>
        <translation>打开文件夹</translation>
    </message>
    <message>
        <source>clean the task</source>
        <translation>清除任务</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::SuccessTable</name>
    <message>
        <source>Download Success</source>
        <translation>下载成功</translation>
    </message>
    <message>
        <source>No download has finished yet.</source>
        <translation>尚无已完成的下载。</translation>
    </message>
    <message>
        <source>Finished files appear here, the newest at the top. Mark a span in Playback and press Download.</source>
        <translation>已完成的文件会显示在这里，最新的在最上方。在“回放”中标记时间段，然后点击“下载”。</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>空格</translation>
    </message>
    <message>
        <source>check</source>
        <translation>勾选</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>open the file</source>
        <translation>打开文件</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Del</translation>
    </message>
    <message>
        <source>clean the task</source>
        <translation>清除任务</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>打开文件夹</translation>
    </message>
    <message>
        <source>Batch Delete</source>
        <translation>批量删除</translation>
    </message>
    <message>
        <source>Download success,record source:%1, time range:%2, file size:%3</source>
        <translation>下载成功，录像来源：%1，时间范围：%2，文件大小：%3</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s), newest first</source>
        <translation>
            <numerusform>%n个文件，最新在前</numerusform>
        </translation>
    </message>
    <message>
        <source>file does not exist</source>
        <translation>文件不存在</translation>
    </message>
    <message>
        <source>download path is invalid</source>
        <translation>下载路径无效</translation>
    </message>
    <message>
        <source>open folder</source>
        <translation>打开文件夹</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::TaskDetailsText</name>
    <message>
        <source>%1 to %2 (%3)</source>
        <translation>%1至%2（%3）</translation>
    </message>
    <message>
        <source>; begins %1 later than asked</source>
        <translation>；开始时间比要求的晚%1</translation>
    </message>
    <message>
        <source>; ends %1 earlier than asked</source>
        <translation>；结束时间比要求的早%1</translation>
    </message>
    <message>
        <source>Received</source>
        <translation>已接收</translation>
    </message>
    <message>
        <source>Gaps</source>
        <translation>缺口</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>lost in transfer</source>
        <translation>传输中丢失</translation>
    </message>
    <message>
        <source>not recorded</source>
        <translation>未录制</translation>
    </message>
    <message>
        <source>%1 to %2, %3, %4</source>
        <translation>%1至%2，%3，%4</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>及另外%1个</translation>
    </message>
    <message>
        <source>Losses</source>
        <translation>丢失</translation>
    </message>
    <message>
        <source>%L1 frames did not arrive whole</source>
        <translation>%L1帧未完整到达</translation>
    </message>
    <message>
        <source>Media</source>
        <translation>媒体</translation>
    </message>
    <message>
        <source>%1 MB (%L2 bytes)</source>
        <translation>%1 MB（%L2字节）</translation>
    </message>
    <message>
        <source>The recorder refused the login. It is not tried again by itself: correct user and password of the recorder, then redownload.</source>
        <translation>录像机拒绝登录。不会自动重试：请更正录像机的用户名和密码，然后重新下载。</translation>
    </message>
    <message>
        <source>The recorder could not be reached, or had no connection left. It is tried again by itself; check network and power of the recorder if that goes on.</source>
        <translation>无法连接录像机，或其连接数已满。将自动重试；如果持续如此，请检查录像机的网络和电源。</translation>
    </message>
    <message>
        <source>The download broke off. What arrived is kept as a file of its own; the rest is fetched again by itself.</source>
        <translation>下载中断。已到达的内容保留为单独的文件；其余部分将自动重新获取。</translation>
    </message>
    <message>
        <source>The recording can&apos;t be read, or the file can&apos;t be written. It is not tried again by itself: check the download folder and its disk, then redownload.</source>
        <translation>无法读取录像，或无法写入文件。不会自动重试：请检查下载文件夹及其磁盘，然后重新下载。</translation>
    </message>
    <message>
        <source>The recorder gave no address for the recording, which it may have overwritten. It is tried again by itself; search the recordings of that day to see what is left.</source>
        <translation>录像机未提供该录像的地址，录像可能已被覆盖。将自动重试；可搜索当天的录像查看剩余内容。</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>原因</translation>
    </message>
    <message>
        <source>What next</source>
        <translation>后续处理</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>通道</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1/%2</translation>
    </message>
    <message>
        <source>Asked</source>
        <translation>请求</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>速率</translation>
    </message>
    <message>
        <source>%1 MB/s, %2 in all</source>
        <translation>%1 MB/s，共%2</translation>
    </message>
    <message>
        <source>less than 1 s</source>
        <translation>不到1秒</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>SHA-256</source>
        <translation>SHA-256</translation>
    </message>
    <message>
        <source>not summed yet</source>
        <translation>尚未计算</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::TaskDetailsWt</name>
    <message>
        <source>Verify</source>
        <translation>校验</translation>
    </message>
    <message>
        <source>Copy checksum</source>
        <translation>复制校验和</translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation>打开文件夹</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>详情</translation>
    </message>
    <message>
        <source>Close the details</source>
        <translation>关闭详情</translation>
    </message>
    <message>
        <source>Reading the file.</source>
        <translation>正在读取文件。</translation>
    </message>
    <message>
        <source>Copied as a line that &quot;sha256sum -c&quot; reads.</source>
        <translation>已复制为可由“sha256sum -c”读取的一行。</translation>
    </message>
    <message>
        <source>The file is not there any more: it was deleted, moved or renamed.</source>
        <translation>文件已不存在：已被删除、移动或重命名。</translation>
    </message>
    <message>
        <source>There is no file yet.</source>
        <translation>尚无文件。</translation>
    </message>
    <message>
        <source>Reading the file: %1%</source>
        <translation>正在读取文件：%1%</translation>
    </message>
    <message>
        <source>Only a finished download can be verified</source>
        <translation>只有已完成的下载才能校验</translation>
    </message>
    <message>
        <source>The file is being read</source>
        <translation>正在读取文件</translation>
    </message>
    <message>
        <source>Compare the file with the checksum kept when it was finished</source>
        <translation>将文件与完成时保存的校验和比对</translation>
    </message>
    <message>
        <source>Copy the checksum as a line that &quot;sha256sum -c&quot; reads</source>
        <translation>将校验和复制为可由“sha256sum -c”读取的一行</translation>
    </message>
    <message>
        <source>No checksum is kept yet</source>
        <translation>尚未保存校验和</translation>
    </message>
    <message>
        <source>Open the folder with the file selected</source>
        <translation>打开文件夹并选中该文件</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::TaskPageFrame</name>
    <message>
        <source>Open Playback</source>
        <translation>打开“回放”</translation>
    </message>
    <message>
        <source>%1 of %2 checked</source>
        <translation>已勾选%1/%2</translation>
    </message>
</context>
<context>
    <name>vemo_filesCenter::TaskTexts</name>
    <message>
        <source>%1(No longer exists)</source>
        <translation>%1（已不存在）</translation>
    </message>
    <message>
        <source>Device does not exist</source>
        <translation>设备不存在</translation>
    </message>
    <message>
        <source>Login Dev Failed</source>
        <translation>设备登录失败</translation>
    </message>
    <message>
        <source>Connect Failed</source>
        <translation>连接失败</translation>
    </message>
    <message>
        <source>Download Abnormal</source>
        <translation>下载异常</translation>
    </message>
    <message>
        <source>Invalid File</source>
        <translation>无效文件</translation>
    </message>
    <message>
        <source>Get Url Failed</source>
        <translation>获取地址失败</translation>
    </message>
    <message>
        <source>The recorder refused the login.</source>
        <translation>录像机拒绝登录。</translation>
    </message>
    <message>
        <source>The recorder could not be reached.</source>
        <translation>无法连接录像机。</translation>
    </message>
    <message>
        <source>The download broke off. What arrived is kept.</source>
        <translation>下载中断。已到达的内容已保留。</translation>
    </message>
    <message>
        <source>The file was gone when the download ended.</source>
        <translation>下载结束时文件已不存在。</translation>
    </message>
    <message>
        <source>The recorder gave no address to replay the recording from.</source>
        <translation>录像机未提供该录像的回放地址。</translation>
    </message>
    <message>
        <source>less than a minute</source>
        <translation>不到1分钟</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1分钟</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1小时%2分</translation>
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
        <translation>是否删除下载任务：%1（%2）？</translation>
    </message>
</context>
<context>
    <name>vemo_worker</name>
    <message>
        <source>There is no user %1.</source>
        <translation>用户%1不存在。</translation>
    </message>
    <message>
        <source>The password can&apos;t be worked on: the system has not enough free memory.</source>
        <translation>无法处理密码：系统可用内存不足。</translation>
    </message>
</context>
<context>
    <name>vemo_worker::ClientSecretKey</name>
    <message>
        <source>The system gives no random numbers.</source>
        <translation>系统未提供随机数。</translation>
    </message>
    <message>
        <source>The key file %1 can&apos;t be written.</source>
        <translation>无法写入密钥文件%1。</translation>
    </message>
    <message>
        <source>The key file %1 can&apos;t be read: %2.</source>
        <translation>无法读取密钥文件%1：%2。</translation>
    </message>
    <message>
        <source>The stored passwords are locked; set VEMO_SECRETS_PASSWORD.</source>
        <translation>已保存的密码处于锁定状态；请设置VEMO_SECRETS_PASSWORD。</translation>
    </message>
    <message>
        <source>VEMO_SECRETS_PASSWORD is not the password of the stored passwords.</source>
        <translation>VEMO_SECRETS_PASSWORD不是已保存密码所用的密码。</translation>
    </message>
    <message>
        <source>The key file %1 is damaged.</source>
        <translation>密钥文件%1已损坏。</translation>
    </message>
</context>
<context>
    <name>vemo_worker::DictDef</name>
    <message>
        <source>Alert</source>
        <translation>警示</translation>
    </message>
    <message>
        <source>Prompt</source>
        <translation>提示</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
</context>
<context>
    <name>vemo_worker::FolderCheck</name>
    <message>
        <source>The disk or network place does not answer. Choose another folder or connect it.</source>
        <translation>磁盘或网络位置没有应答。请选择其他文件夹或将其连接。</translation>
    </message>
    <message>
        <source>Give the whole path of a folder.</source>
        <translation>请输入文件夹的完整路径。</translation>
    </message>
    <message>
        <source>This is a file. Choose a folder.</source>
        <translation>这是文件。请选择文件夹。</translation>
    </message>
    <message>
        <source>The disk is read-only. Choose another folder.</source>
        <translation>磁盘为只读。请选择其他文件夹。</translation>
    </message>
    <message>
        <source>Files can&apos;t be made in this folder. Choose another one or have its access rights changed.</source>
        <translation>无法在此文件夹中创建文件。请另选一个，或更改其访问权限。</translation>
    </message>
    <message>
        <source>Less than 1 GB is free on this disk. Make room or choose another folder.</source>
        <translation>此磁盘的可用空间不足1 GB。请清理空间或选择其他文件夹。</translation>
    </message>
    <message>
        <source>Writing a file in this folder failed: %1</source>
        <translation>在此文件夹中写入文件失败：%1</translation>
    </message>
    <message>
        <source>Less than 10 GB is free on this disk.</source>
        <translation>此磁盘的可用空间不足10 GB。</translation>
    </message>
    <message>
        <source>Writing here is slow: %1 MB/s. Downloads may have to wait for this disk.</source>
        <translation>此处写入缓慢：%1 MB/s。下载可能需要等待此磁盘。</translation>
    </message>
    <message>
        <source>The network place can&apos;t be reached. Choose another folder or connect it.</source>
        <translation>无法连接网络位置。请选择其他文件夹或将其连接。</translation>
    </message>
    <message>
        <source>Drive %1 is not connected. Choose another folder or connect the drive.</source>
        <translation>驱动器%1未连接。请选择其他文件夹或连接该驱动器。</translation>
    </message>
    <message>
        <source>The disk of this folder is not connected. Choose another folder or connect the disk.</source>
        <translation>此文件夹所在磁盘未连接。请选择其他文件夹或连接该磁盘。</translation>
    </message>
    <message>
        <source>This folder is not there yet.</source>
        <translation>此文件夹尚不存在。</translation>
    </message>
    <message>
        <source>%1 is a file. Choose a folder.</source>
        <translation>%1是文件。请选择文件夹。</translation>
    </message>
</context>
<context>
    <name>vemo_worker::SealedFile</name>
    <message>
        <source>The file %1 is damaged.</source>
        <translation>文件%1已损坏。</translation>
    </message>
</context>
<context>
    <name>vemo_worker::UserRules</name>
    <message>
        <source>The user name is missing.</source>
        <translation>缺少用户名。</translation>
    </message>
    <message>
        <source>The user name is longer than %1 characters.</source>
        <translation>用户名超过%1个字符。</translation>
    </message>
    <message>
        <source>The user name has a character that can&apos;t be seen.</source>
        <translation>用户名包含不可见字符。</translation>
    </message>
    <message>
        <source>The password of an administrator has %1 characters or more.</source>
        <translation>管理员密码至少需要%1个字符。</translation>
    </message>
    <message>
        <source>The password has %1 characters or more.</source>
        <translation>密码至少需要%1个字符。</translation>
    </message>
    <message>
        <source>The password is longer than %1 characters.</source>
        <translation>密码超过%1个字符。</translation>
    </message>
    <message>
        <source>The password is the user name; choose another one.</source>
        <translation>密码与用户名相同，请另选密码。</translation>
    </message>
    <message>
        <source>The password is too easy to guess. Mix letters with digits or signs.</source>
        <translation>密码过于容易猜到。请将字母与数字或符号混合使用。</translation>
    </message>
</context>
<context>
    <name>vemo_worker::UserStore</name>
    <message>
        <source>The file %1 is of another version.</source>
        <translation>文件%1属于其他版本。</translation>
    </message>
    <message>
        <source>The file %1 can&apos;t be written; nothing was changed.</source>
        <translation>无法写入文件%1；未做任何更改。</translation>
    </message>
    <message>
        <source>There is a user %1 already.</source>
        <translation>用户%1已存在。</translation>
    </message>
    <message>
        <source>The first user has to be an administrator.</source>
        <translation>第一个用户必须是管理员。</translation>
    </message>
    <message>
        <source>The accounts can&apos;t be opened.</source>
        <translation>无法打开账户。</translation>
    </message>
    <message>
        <source>There are %1 users already, which is the limit.</source>
        <translation>已有%1个用户，达到上限。</translation>
    </message>
    <message>
        <source>The account is locked after too many wrong passwords. Try again later.</source>
        <translation>密码错误次数过多，账户已锁定。请稍后重试。</translation>
    </message>
    <message>
        <source>The current password is wrong.</source>
        <translation>当前密码错误。</translation>
    </message>
    <message>
        <source>%1 is the only administrator; make another one first.</source>
        <translation>%1是唯一的管理员；请先设置另一个管理员。</translation>
    </message>
    <message>
        <source>%1 is the only administrator and stays enabled; make another one first.</source>
        <translation>%1是唯一的管理员，不能停用；请先设置另一个管理员。</translation>
    </message>
    <message>
        <source>%1 is the only administrator and can&apos;t be removed.</source>
        <translation>%1是唯一的管理员，不能移除。</translation>
    </message>
</context>
<context>
    <name>vms_sdk::DeviceSession</name>
    <message>
        <source>The device at %1 cannot be reached: %2.</source>
        <translation>无法连接%1处的设备：%2。</translation>
    </message>
    <message>
        <source>The device at %1 cannot be reached: no connection within %2 s.</source>
        <translation>无法连接%1处的设备：%2秒内未建立连接。</translation>
    </message>
    <message>
        <source>Channel %1</source>
        <translation>通道%1</translation>
    </message>
    <message>
        <source>The device&apos;s address must begin with http, https, rtsp or rtsps.</source>
        <translation>设备地址必须以http、https、rtsp或rtsps开头。</translation>
    </message>
    <message>
        <source>The device has no channel %1.</source>
        <translation>设备没有通道%1。</translation>
    </message>
    <message>
        <source>The device offers no replay of channel %1.</source>
        <translation>设备不提供通道%1的回放。</translation>
    </message>
    <message>
        <source>The device gives no replay address for the recording.</source>
        <translation>设备未提供该录像的回放地址。</translation>
    </message>
    <message>
        <source>The device offers no live video of channel %1.</source>
        <translation>设备不提供通道%1的实时视频。</translation>
    </message>
    <message>
        <source>The device was logged out.</source>
        <translation>设备已退出登录。</translation>
    </message>
</context>
<context>
    <name>vms_sdk::DiscoveryJob</name>
    <message>
        <source>This computer is connected to no network.</source>
        <translation>本机未连接任何网络。</translation>
    </message>
</context>
<context>
    <name>vms_sdk::LoginFlow</name>
    <message>
        <source>Channel %1</source>
        <translation>通道%1</translation>
    </message>
</context>
<context>
    <name>vms_sdk::SdkCore</name>
    <message>
        <source>The end of the time span lies before its begin.</source>
        <translation>时间段的结束早于其开始。</translation>
    </message>
</context>
<context>
    <name>vms_sdk::SearchJob</name>
    <message>
        <source>The device has no channel %1.</source>
        <translation>设备没有通道%1。</translation>
    </message>
    <message>
        <source>The device offers no search of recordings.</source>
        <translation>设备不提供录像搜索。</translation>
    </message>
    <message>
        <source>The device was logged out.</source>
        <translation>设备已退出登录。</translation>
    </message>
    <message>
        <source>The device does not get on with its search.</source>
        <translation>设备的搜索没有进展。</translation>
    </message>
    <message>
        <source>The device&apos;s answer cannot be read.</source>
        <translation>无法读取设备的应答。</translation>
    </message>
    <message>
        <source>The device tells of more than %1 events in this time; search a shorter one.</source>
        <translation>设备在此时间内报告的事件超过%1个；请搜索较短的时间段。</translation>
    </message>
    <message>
        <source>The device tells of more than %1 recordings in this time; search a shorter one.</source>
        <translation>设备在此时间内报告的录像超过%1段；请搜索较短的时间段。</translation>
    </message>
    <message>
        <source>The search was cancelled.</source>
        <translation>搜索已取消。</translation>
    </message>
</context>
<context>
    <name>vms_sdk::SearchRequests</name>
    <message>
        <source>The search was not answered within %1 s.</source>
        <translation>搜索在%1秒内未得到应答。</translation>
    </message>
</context>
<context>
    <name>vms_sdk::SoapWorker</name>
    <message>
        <source>The device is not known.</source>
        <translation>未知设备。</translation>
    </message>
</context>
<context>
    <name>vms_sdk::StreamRegistry</name>
    <message>
        <source>The recording&apos;s name is not one that a search gave.</source>
        <translation>该录像名称不是搜索得到的名称。</translation>
    </message>
    <message>
        <source>The recording ends before the place to play from.</source>
        <translation>录像在要播放的位置之前已结束。</translation>
    </message>
    <message>
        <source>The time to play from is not a time.</source>
        <translation>要播放的起始时间不是有效时间。</translation>
    </message>
    <message>
        <source>The end of the time span lies before its begin.</source>
        <translation>时间段的结束早于其开始。</translation>
    </message>
    <message>
        <source>The device was logged out.</source>
        <translation>设备已退出登录。</translation>
    </message>
</context>
<context>
    <name>vms_sdk::onvif::HttpAnswerReader</name>
    <message>
        <source>The device closed the connection in the middle of its answer.</source>
        <translation>设备在应答中途关闭了连接。</translation>
    </message>
    <message>
        <source>The device&apos;s answer has a line longer than %1 bytes.</source>
        <translation>设备的应答中有超过%1字节的行。</translation>
    </message>
    <message>
        <source>The device&apos;s answer cannot be read.</source>
        <translation>无法读取设备的应答。</translation>
    </message>
    <message>
        <source>The device&apos;s answer has more than %1 headers.</source>
        <translation>设备的应答头超过%1个。</translation>
    </message>
    <message>
        <source>The device does not answer in HTTP.</source>
        <translation>设备未以HTTP应答。</translation>
    </message>
    <message>
        <source>The device&apos;s answer is larger than %1 bytes.</source>
        <translation>设备的应答超过%1字节。</translation>
    </message>
</context>
<context>
    <name>vms_sdk::onvif::HttpConnection</name>
    <message>
        <source>The device at %1 is not trusted: %2.</source>
        <translation>%1处的设备不受信任：%2。</translation>
    </message>
    <message>
        <source>The connection to %1 broke off.</source>
        <translation>与%1的连接中断。</translation>
    </message>
    <message>
        <source>No secure connection to %1: %2.</source>
        <translation>无法与%1建立安全连接：%2。</translation>
    </message>
    <message>
        <source>The device at %1 cannot be reached: %2.</source>
        <translation>无法连接%1处的设备：%2。</translation>
    </message>
    <message>
        <source>The device at %1 did not answer within %2 s.</source>
        <translation>%1处的设备在%2秒内没有应答。</translation>
    </message>
    <message>
        <source>The device at %1 cannot be reached: no connection within %2 s.</source>
        <translation>无法连接%1处的设备：%2秒内未建立连接。</translation>
    </message>
</context>
<context>
    <name>vms_sdk::onvif::SoapAnswer</name>
    <message>
        <source>The device refuses the user name or password.</source>
        <translation>设备拒绝该用户名或密码。</translation>
    </message>
    <message>
        <source>The device has locked the account.</source>
        <translation>设备已锁定该账户。</translation>
    </message>
    <message>
        <source>The device has not been activated yet.</source>
        <translation>设备尚未激活。</translation>
    </message>
    <message>
        <source>The device does not support what was asked.</source>
        <translation>设备不支持所请求的内容。</translation>
    </message>
    <message>
        <source>The device has reached a limit of its own.</source>
        <translation>设备已达到自身的上限。</translation>
    </message>
    <message>
        <source>The device does not know what was asked for.</source>
        <translation>设备不认识所请求的内容。</translation>
    </message>
    <message>
        <source>The device refuses the request.</source>
        <translation>设备拒绝该请求。</translation>
    </message>
    <message>
        <source>The device refuses the request: %1</source>
        <translation>设备拒绝该请求：%1</translation>
    </message>
    <message>
        <source>The device&apos;s answer cannot be read.</source>
        <translation>无法读取设备的应答。</translation>
    </message>
</context>
<context>
    <name>vms_sdk::onvif::SoapClient</name>
    <message>
        <source>The device redirects more than %1 times.</source>
        <translation>设备的重定向超过%1次。</translation>
    </message>
    <message>
        <source>The device redirects to an address that cannot be used.</source>
        <translation>设备重定向到无法使用的地址。</translation>
    </message>
    <message>
        <source>The device redirects to another host (%1), where the login is not sent.</source>
        <translation>设备重定向到另一主机（%1），不会向其发送登录信息。</translation>
    </message>
    <message>
        <source>The device redirects from a secure to an open connection, where the login is not sent.</source>
        <translation>设备从安全连接重定向到非安全连接，不会向其发送登录信息。</translation>
    </message>
    <message>
        <source>The device refuses the user name or password.</source>
        <translation>设备拒绝该用户名或密码。</translation>
    </message>
    <message>
        <source>The device still asks for the login after %1 rounds.</source>
        <translation>经过%1轮后，设备仍要求登录。</translation>
    </message>
    <message>
        <source>The device wants the password in clear, which is not sent on an open connection.</source>
        <translation>设备要求明文密码，不会通过非安全连接发送。</translation>
    </message>
    <message>
        <source>The device offers no way of login that can be used.</source>
        <translation>设备未提供可用的登录方式。</translation>
    </message>
    <message>
        <source>There is no ONVIF service at this address.</source>
        <translation>该地址没有ONVIF服务。</translation>
    </message>
    <message>
        <source>The device has locked the account.</source>
        <translation>设备已锁定该账户。</translation>
    </message>
    <message>
        <source>The device is busy or has reached a limit of its own.</source>
        <translation>设备繁忙或已达到自身的上限。</translation>
    </message>
    <message>
        <source>The device refuses the request (HTTP %1).</source>
        <translation>设备拒绝该请求 (HTTP %1)。</translation>
    </message>
    <message>
        <source>There is not enough memory to read what the device answers.</source>
        <translation>内存不足，无法读取设备的应答。</translation>
    </message>
</context>
<context>
    <name>vms_sdk::onvif::TlsCheck</name>
    <message>
        <source>its key is not the one that was accepted before</source>
        <translation>其密钥与之前接受的密钥不同</translation>
    </message>
    <message>
        <source>it shows no certificate</source>
        <translation>它未出示证书</translation>
    </message>
</context>
<context>
    <name>vms_sdk::onvif::XmlGuard</name>
    <message>
        <source>The device&apos;s answer is larger than %1 bytes.</source>
        <translation>设备的应答超过%1字节。</translation>
    </message>
    <message>
        <source>The device&apos;s answer is not UTF-8 text.</source>
        <translation>设备的应答不是UTF-8文本。</translation>
    </message>
    <message>
        <source>The device&apos;s answer contains a document type definition.</source>
        <translation>设备的应答包含文档类型定义。</translation>
    </message>
    <message>
        <source>The device&apos;s answer ends in the middle of its markup.</source>
        <translation>设备的应答在标记中途结束。</translation>
    </message>
    <message>
        <source>The device&apos;s answer has more than %1 elements.</source>
        <translation>设备的应答超过%1个元素。</translation>
    </message>
    <message>
        <source>The device&apos;s answer has a tag longer than %1 bytes.</source>
        <translation>设备的应答中有超过%1字节的标签。</translation>
    </message>
    <message>
        <source>The device&apos;s answer has an element with more than %1 attributes.</source>
        <translation>设备的应答中有元素的属性超过%1个。</translation>
    </message>
    <message>
        <source>The device&apos;s answer is nested deeper than %1 elements.</source>
        <translation>设备的应答嵌套超过%1层。</translation>
    </message>
</context>
<context>
    <name>vms_sdk::rtsp::RtspConnection</name>
    <message>
        <source>%1 did not answer when a connection was tried.</source>
        <translation>尝试连接时%1没有应答。</translation>
    </message>
    <message>
        <source>The key of the recorder&apos;s certificate has changed.</source>
        <translation>录像机证书的密钥已改变。</translation>
    </message>
    <message>
        <source>The certificate of %1 is not trusted: %2</source>
        <translation>%1的证书不受信任：%2</translation>
    </message>
    <message>
        <source>%1 asks without reading the answers, beyond the limit of %2 bytes.</source>
        <translation>%1不断请求而不读取应答，超过%2字节的上限。</translation>
    </message>
    <message>
        <source>%1 closed the connection.</source>
        <translation>%1关闭了连接。</translation>
    </message>
    <message>
        <source>%1 refused the connection.</source>
        <translation>%1拒绝连接。</translation>
    </message>
    <message>
        <source>There is no host named %1.</source>
        <translation>不存在名为%1的主机。</translation>
    </message>
    <message>
        <source>No secure connection to %1 is possible; it needs TLS 1.2 or newer.</source>
        <translation>无法与%1建立安全连接；需要TLS 1.2或更高版本。</translation>
    </message>
    <message>
        <source>%1 ended the attempt of a secure connection.</source>
        <translation>%1终止了建立安全连接的尝试。</translation>
    </message>
    <message>
        <source>%1 cannot be reached.</source>
        <translation>无法连接%1。</translation>
    </message>
    <message>
        <source>a line longer than the limit of %1 bytes</source>
        <translation>超过%1字节上限的行</translation>
    </message>
    <message>
        <source>an answer beyond the limit of %1 headers</source>
        <translation>应答头超过%1个上限的应答</translation>
    </message>
    <message>
        <source>an answer beyond the limit of %1 bytes</source>
        <translation>超过%1字节上限的应答</translation>
    </message>
    <message>
        <source>an answer whose length is no number</source>
        <translation>长度不是数字的应答</translation>
    </message>
    <message>
        <source>something that is no RTSP</source>
        <translation>非RTSP内容</translation>
    </message>
    <message>
        <source>%1 sent %2.</source>
        <translation>%1发送了%2。</translation>
    </message>
    <message>
        <source>There is not enough memory to read what %1 sends.</source>
        <translation>内存不足，无法读取 %1 发送的数据。</translation>
    </message>
</context>
<context>
    <name>vms_sdk::rtsp::StreamClient</name>
    <message>
        <source>%1 does not know the requested recording or channel.</source>
        <translation>%1不认识所请求的录像或通道。</translation>
    </message>
    <message>
        <source>%1 has nothing recorded for the requested time.</source>
        <translation>%1在所请求的时间没有录像。</translation>
    </message>
    <message>
        <source>%1 has not enough bandwidth for a further stream.</source>
        <translation>%1的带宽不足，无法再提供码流。</translation>
    </message>
    <message>
        <source>%1 has reached its limit of connections.</source>
        <translation>%1已达到连接数上限。</translation>
    </message>
    <message>
        <source>%1 does not send over TCP.</source>
        <translation>%1不通过TCP发送。</translation>
    </message>
    <message>
        <source>%1 refused the request: %2 %3</source>
        <translation>%1拒绝该请求：%2 %3</translation>
    </message>
    <message>
        <source>%1 wants a login, and there is none for it.</source>
        <translation>%1要求登录，但没有其登录信息。</translation>
    </message>
    <message>
        <source>%1 refused user name or password.</source>
        <translation>%1拒绝该用户名或密码。</translation>
    </message>
    <message>
        <source>%1 refused the login after the limit of %2 rounds.</source>
        <translation>经过上限%2轮后，%1拒绝登录。</translation>
    </message>
    <message>
        <source>%1 wants the password in clear text over a connection that is not secure.</source>
        <translation>%1要求通过非安全连接发送明文密码。</translation>
    </message>
    <message>
        <source>%1 offers no way to log in that is known or as safe as before.</source>
        <translation>%1未提供已知的或与之前同样安全的登录方式。</translation>
    </message>
    <message>
        <source>The stream&apos;s address is none of RTSP.</source>
        <translation>码流地址不是RTSP地址。</translation>
    </message>
    <message>
        <source>%1 has stopped sending.</source>
        <translation>%1已停止发送。</translation>
    </message>
    <message>
        <source>%1 did not answer within %2 s.</source>
        <translation>%1在%2秒内没有应答。</translation>
    </message>
    <message>
        <source>a picture beyond the limit of %1 MiB</source>
        <translation>超过%1 MiB上限的画面</translation>
    </message>
    <message>
        <source>a picture beyond the limit of %1 NAL units</source>
        <translation>超过%1个NAL单元上限的画面</translation>
    </message>
    <message>
        <source>%1 sent %2.</source>
        <translation>%1发送了%2。</translation>
    </message>
    <message>
        <source>%1 has ended the live video.</source>
        <translation>%1已结束实时视频。</translation>
    </message>
    <message>
        <source>%1 does not know the session any more.</source>
        <translation>%1已不认识该会话。</translation>
    </message>
    <message>
        <source>%1 points to an address that is none of RTSP.</source>
        <translation>%1指向的地址不是RTSP地址。</translation>
    </message>
    <message>
        <source>%1 redirects beyond the limit of %2 times.</source>
        <translation>%1的重定向超过%2次上限。</translation>
    </message>
    <message>
        <source>%1 redirects from a secure to an open connection.</source>
        <translation>%1从安全连接重定向到非安全连接。</translation>
    </message>
    <message>
        <source>%1 sent no readable description of the stream.</source>
        <translation>%1未发送可读的码流描述。</translation>
    </message>
    <message>
        <source>%1 sends nothing that can be received: %2</source>
        <translation>%1发送的内容均无法接收：%2</translation>
    </message>
    <message>
        <source>%1 moved the stream elsewhere.</source>
        <translation>%1已将码流移至别处。</translation>
    </message>
</context>
</TS>
