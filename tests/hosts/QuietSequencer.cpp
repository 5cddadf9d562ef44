// Preloaded into qtractor, which opens no session without the kernel's MIDI sequencer: one in which nothing ever
// happens, for machines that have none. Everything that would ask the kernel is here; what only reads and writes the
// library's own structures is the library's.
#include <cerrno>

#include <poll.h>
#include <sys/eventfd.h>

namespace {

int theSequencer = 0;
int nextPort = 0;
const int neverReadable = eventfd(0, EFD_CLOEXEC);

} // namespace

// NOLINTBEGIN(readability-identifier-naming): the names are the library's.
#pragma GCC visibility push(default)
extern "C" {

int snd_seq_open(void** sequencer, const char*, int, int) {
    *sequencer = &theSequencer;
    return 0;
}
int snd_seq_create_simple_port(void*, const char*, unsigned, unsigned) {
    return nextPort++;
}
int snd_seq_client_id(void*) {
    return 128;
}
int snd_seq_event_input(void*, void** event) {
    *event = nullptr;
    return -EAGAIN;
}
int snd_seq_poll_descriptors(void*, pollfd* descriptors, unsigned, short) {
    *descriptors = {neverReadable, POLLIN, 0};
    return 1;
}

// The arguments of the rest do not matter.
#define ANSWER(function, result)                                                                                       \
    int function() {                                                                                                   \
        return result;                                                                                                 \
    }
ANSWER(snd_seq_alloc_queue, 0)
ANSWER(snd_seq_close, 0)
ANSWER(snd_seq_control_queue, 0)
ANSWER(snd_seq_delete_simple_port, 0)
ANSWER(snd_seq_drain_output, 0)
ANSWER(snd_seq_drop_input, 0)
ANSWER(snd_seq_drop_output, 0)
ANSWER(snd_seq_event_input_pending, 0)
ANSWER(snd_seq_event_output, 0)
ANSWER(snd_seq_event_output_direct, 0)
ANSWER(snd_seq_free_queue, 0)
ANSWER(snd_seq_get_any_client_info, -ENOENT)
ANSWER(snd_seq_get_any_port_info, -ENOENT)
ANSWER(snd_seq_get_port_info, 0)
ANSWER(snd_seq_get_queue_status, 0)
ANSWER(snd_seq_get_queue_tempo, 0)
ANSWER(snd_seq_poll_descriptors_count, 1)
ANSWER(snd_seq_query_next_client, -ENOENT)
ANSWER(snd_seq_query_next_port, -ENOENT)
ANSWER(snd_seq_query_port_subscribers, -ENOENT)
ANSWER(snd_seq_remove_events, 0)
ANSWER(snd_seq_set_client_name, 0)
ANSWER(snd_seq_set_port_info, 0)
ANSWER(snd_seq_set_queue_tempo, 0)
ANSWER(snd_seq_set_queue_timer, 0)
ANSWER(snd_seq_subscribe_port, 0)
ANSWER(snd_seq_unsubscribe_port, 0)

} // extern "C"
#pragma GCC visibility pop
// NOLINTEND(readability-identifier-naming)
