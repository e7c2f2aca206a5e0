#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "ports/FileSystem.h"
#include "util/UserInterface.h"

namespace pellmark {

/// Makes `each` of so many calls to the host, by number from 0. Where they are many, a form over the owner
/// says how many are done and lets the person end them. `what` names the work, in the language of the person.
/// True when all have been made, false when the person has ended them; what a call throws is thrown on.
bool makeCalls(const UserInterface& person, Idle& idle, const std::string& what, WindowHandle owner,
               std::size_t count, const std::function<void(std::size_t)>& each);

}  // namespace pellmark
