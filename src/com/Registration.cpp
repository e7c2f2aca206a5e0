#include "com/Registration.h"

#include "Pellmark.h"

namespace pellmark {

const Server& componentServer() {
    static const RegisteredClass classes[] = {
        {CLSID_Application, L"Pellmark.Application", L"Pellmark Process Manager"}};
    static const RegisteredInterface interfaces[] = {{IID__Application, L"_Application"}};
    static const Server server{"Pellmark", LIBID_Pellmark, L"Pellmark Process Manager 1.0", classes,
                               interfaces};
    return server;
}

}  // namespace pellmark
