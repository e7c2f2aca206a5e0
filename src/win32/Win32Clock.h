#pragma once

#include "desktop/Clock.h"

namespace pellmark {

class Win32Clock : public Clock {
  public:
    std::string now() override;
};

}  // namespace pellmark
