#include "util/Rights.h"

#include <string>

namespace pellmark {

bool Rights::CheckPermission(int operation) {
    if (knowledgeBase_.userRights().may(operation)) return true;
    Texts& texts = person_.texts;
    std::string what;
    if (operation == PermissionEdit) what = texts.GetString("edit objects in the database!");
    if (operation == PermissionAdd) what = texts.GetString("add new objects to the database!");
    if (operation == PermissionDelete) what = texts.GetString("delete objects from the database!");
    person_.show(
        {texts.GetString("You do not have permission to") + " " + what, "", MessageIcon::Information});
    return false;
}

}  // namespace pellmark
