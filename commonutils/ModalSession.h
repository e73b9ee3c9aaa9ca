#pragma once

// Says, as long as it lives, that a modal window of ours shows. No window of ours blocks the others by
// itself: who must not open meanwhile asks. Main thread only.
class ModalSession {
public:
    ModalSession();
    ~ModalSession();
    ModalSession(const ModalSession&) = delete;
    ModalSession& operator=(const ModalSession&) = delete;

    static bool isRunning();
    // The notification of the first session's beginning and the last one's end.
    static constexpr char16_t kChanged[] = u"modalSessionChanged";
};
