#pragma once

#include "ports/Clock.h"

namespace pellmark {

class Win32Clock : public Clock {
  public:
    std::string now() override;
};

}  // namespace pellmark
