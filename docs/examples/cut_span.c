/* Cuts a span out of a recording file, with a clock track:
 *
 *   cut_span SOURCE.mp4 BEGIN-OF-SOURCE BEGIN END TARGET.mp4      times in UTC, as 20260110080000Z
 */
#include "vaws_download.h"

#include <stdio.h>
#include <string.h>
#include <threads.h>

static mtx_t lock;
static cnd_t changed;
static int ending; /* under lock: the event that ended the task, 0 while it runs */

/* Comes on a thread of the library. */
static void takeEvent(const char* task, int event, int value)
{
    (void)task;
    if (event == VAWS_EVENT_PROGRESS)
        printf("%d %%\n", value);
    if (event != VAWS_EVENT_FINISHED && event != VAWS_EVENT_NO_DATA && event != VAWS_EVENT_WRITE_ERROR &&
        event != VAWS_EVENT_INVALID && event != VAWS_EVENT_BROKEN)
        return;
    mtx_lock(&lock);
    ending = event;
    cnd_signal(&changed);
    mtx_unlock(&lock);
}

int main(int count, char** arguments)
{
    char source[8192];
    char report[16384];
    int result;
    if (count != 6 || strpbrk(arguments[1], "\"\\")) {
        fprintf(stderr, "usage: cut_span SOURCE.mp4 BEGIN-OF-SOURCE BEGIN END TARGET.mp4\n");
        return 2;
    }
    mtx_init(&lock, mtx_plain);
    cnd_init(&changed);

    vaws_download_init_sdk("cut_span.journals");
    vaws_download_register_event_callback(takeEvent);
    vaws_download_set_clock_track(1);

    snprintf(source, sizeof source,
             "{\"begin_time\":\"%s\",\"end_time\":\"%s\",\"play_time\":\"%s\",\"records\":"
             "[{\"file_path\":\"%s\",\"begin_time\":\"%s\",\"end_time\":\"%s\"}]}",
             arguments[3], arguments[4], arguments[3], arguments[1], arguments[2], arguments[4]);
    result = vaws_download_time_range(source, arguments[3], arguments[4], arguments[5], "cut");
    if (result != VAWS_OK) {
        fprintf(stderr, "%s\n", vaws_download_text(result));
        return 1;
    }
    mtx_lock(&lock);
    while (ending == 0)
        cnd_wait(&changed, &lock);
    mtx_unlock(&lock);

    if (vaws_download_get_report("cut", report, sizeof report) > 0)
        puts(report);
    vaws_download_shutdown();
    return ending == VAWS_EVENT_FINISHED ? 0 : 1;
}
