#pragma once

#include <vector>

#include "ports/Clipboard.h"

namespace pellmark::test {

/// Keeps what was put on it, unless another program has it open.
class RecordingClipboard : public Clipboard {
  public:
    struct Put {
        ClipboardContent content;
        WindowHandle owner;
    };
    bool put(const ClipboardContent& content, WindowHandle owner) override {
        if (isOpenElsewhere) return false;
        puts.push_back({content, owner});
        return true;
    }

    std::vector<Put> puts;
    bool isOpenElsewhere = false;
};

}  // namespace pellmark::test
