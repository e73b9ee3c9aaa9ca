#include "bench/floors/GrabbedKey.h"
#include "bench/floors/SharedScreen.h"
#include "output/PngEncoder.h"

#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace {

// The file's name is there from the beginning: no care is taken of what a failure leaves.
bool writeOnce(const std::string& path, const PageBuffer& bytes)
{
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    const bool isWritten = write(file, bytes.data(), bytes.size()) == ssize_t(bytes.size());
    return close(file) == 0 && isWritten;
}

}

// floor_capture KEYCODE FOLDER: at Super and that key one read of the screen, the encoder, one write.
int main(int argc, char* argv[])
{
    if (argc != 3)
        return 2;
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection))
        return 1;
    const GrabbedKey hotKey(xcb_keycode_t(std::atoi(argv[1])), XCB_MOD_MASK_4);
    SharedScreen screen(connection);
    if (!hotKey.grab(connection))
        return 1;
    int count = 0;
    while (xcb_generic_event_t* event = xcb_wait_for_event(connection)) {
        const bool isPressed = hotKey.isPressedBy(event);
        std::free(event);
        const std::string path = std::string(argv[2]) + "/floor" + std::to_string(count) + ".png";
        if (isPressed && writeOnce(path, PngEncoder::encode(screen.read(), PngEffort::Small)))
            ++count;
    }
    return 0;
}
