#include "win32/ports/Win32FileDialogs.h"

#include <algorithm>
#include <vector>

#include "win32/WideText.h"
#include "win32/ports/DialogOwner.h"

// The wide forms of the system's calls: the names of files and folders that a person chooses may hold
// characters that the code page of the single-byte forms lacks, and would then name no file.

namespace pellmark {

namespace {

/// Room for a folder and some thousand names.
constexpr std::size_t kNames = 65536;
constexpr std::size_t kTitle = 32768;

/// What the hook procedure needs; its dialog keeps the address.
struct Open {
    const FileDialogHook& hook;
    Operations operations;
};

bool tell(const Open& open, FileDialogMessage message) {
    bool answer = true;
    trap(open.operations, "cCommonDialog::DialogHook", [&] { answer = open.hook(message); });
    return answer;
}

void notified(HWND dialog, const Open& open, UINT code) {
    switch (code) {
        case CDN_INITDONE:
            tell(open, FileDialogMessage::Initialised);
            break;
        case CDN_TYPECHANGE:
            tell(open, FileDialogMessage::TypeChanged);
            break;
        case CDN_FOLDERCHANGE:
            tell(open, FileDialogMessage::FolderChanged);
            break;
        case CDN_SELCHANGE:
            tell(open, FileDialogMessage::SelectionChanged);
            break;
        case CDN_FILEOK:
            // The answer of a dialog procedure stands in the window; anything but 0 keeps the dialog open.
            ::SetWindowLongPtrW(dialog, DWLP_MSGRESULT, tell(open, FileDialogMessage::Ok) ? 0 : 1);
            break;
        default:
            break;
    }
}

UINT_PTR CALLBACK hookProcedure(HWND dialog, UINT message, WPARAM, LPARAM lParam) noexcept {
    if (message == WM_INITDIALOG) {
        const auto* const asked = reinterpret_cast<const OPENFILENAMEW*>(lParam);
        ::SetWindowLongPtrW(dialog, GWLP_USERDATA, asked->lCustData);
        return 0;
    }
    const auto* const open = reinterpret_cast<const Open*>(::GetWindowLongPtrW(dialog, GWLP_USERDATA));
    if (open == nullptr) return 0;
    if (message == WM_NOTIFY) {
        const UINT code = reinterpret_cast<const NMHDR*>(lParam)->code;
        notified(dialog, *open, code);
        return code == CDN_FILEOK ? 1 : 0;
    }
    if (message == WM_DESTROY) tell(*open, FileDialogMessage::Destroyed);
    return 0;
}

std::wstring filterText(const std::string& filter) {
    std::wstring text;
    for (const auto& [description, pattern] : filterPairs(filter))
        text += toWide(description) + L'\0' + toWide(pattern) + L'\0';
    return text;  // its own end is the second zero
}

/// A buffer with a text in it, cut where it is too long.
std::vector<wchar_t> bufferWith(const std::string& text, std::size_t size) {
    std::vector<wchar_t> buffer(size);
    const std::wstring wide = toWide(text);
    std::copy_n(wide.begin(), std::min(wide.size(), size - 1), buffer.begin());
    return buffer;
}

/// Without the "*." with which callers of older dialogs wrote an extension.
std::wstring extensionOf(const std::string& extension) {
    const std::size_t dot = extension.rfind('.');
    return toWide(dot == std::string::npos ? extension : extension.substr(dot + 1));
}

const wchar_t* orNull(const std::wstring& text) {
    return text.empty() ? nullptr : text.c_str();
}

}  // namespace

FileDialogResult Win32FileDialogs::show(Call call, const FileDialogRequest& request,
                                        const FileDialogHook& hook) {
    const Operations::Scope scope(operations_);
    const DialogOwner over(request.owner);
    const Open open{hook, operations_};
    const std::wstring filter = filterText(request.filter);
    const std::wstring folder = toWide(request.initialFolder);
    const std::wstring title = toWide(request.title);
    const std::wstring extension = extensionOf(request.defaultExtension);
    std::vector<wchar_t> names = bufferWith(request.fileName, kNames);
    std::vector<wchar_t> fileTitle = bufferWith(request.fileTitle, kTitle);

    OPENFILENAMEW asked{};
    asked.lStructSize = sizeof asked;
    asked.hwndOwner = over.window();
    asked.lpstrFilter = orNull(filter);
    asked.nFilterIndex = static_cast<DWORD>(std::max(request.filterIndex, 1));
    asked.lpstrFile = names.data();
    asked.nMaxFile = static_cast<DWORD>(names.size());
    asked.lpstrFileTitle = fileTitle.data();
    asked.nMaxFileTitle = static_cast<DWORD>(fileTitle.size());
    asked.lpstrInitialDir = orNull(folder);
    asked.lpstrTitle = orNull(title);
    asked.lpstrDefExt = orNull(extension);
    // The current folder is the host's.
    asked.Flags =
        request.flags | OFN_EXPLORER | OFN_ENABLEHOOK | OFN_ENABLESIZING | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    asked.lpfnHook = &hookProcedure;
    asked.lCustData = reinterpret_cast<LPARAM>(&open);

    FileDialogResult result;
    result.confirmed = call(&asked) != FALSE;
    if (!result.confirmed) result.extendedError = ::CommDlgExtendedError();
    if (!result.confirmed) return result;

    // Several names end in two zeros, one name in one.
    const auto end = (request.flags & OFN_ALLOWMULTISELECT) != 0
                         ? std::adjacent_find(names.begin(), names.end(),
                                              [](wchar_t a, wchar_t b) { return a == 0 && b == 0; })
                         : std::find(names.begin(), names.end(), L'\0');
    result.fileNames = chosenPaths(fromWide({names.data(), static_cast<std::size_t>(end - names.begin())}));
    result.fileTitle = fromWide(fileTitle.data());
    result.filterIndex = static_cast<int>(asked.nFilterIndex);
    return result;
}

FileDialogResult Win32FileDialogs::open(const FileDialogRequest& request, const FileDialogHook& hook) {
    return show(&::GetOpenFileNameW, request, hook);
}

FileDialogResult Win32FileDialogs::save(const FileDialogRequest& request, const FileDialogHook& hook) {
    return show(&::GetSaveFileNameW, request, hook);
}

std::string Win32FileDialogs::fileTitle(const std::string& path) {
    std::vector<wchar_t> title(kTitle);
    const short outcome =
        ::GetFileTitleW(toWide(path).c_str(), title.data(), static_cast<WORD>(title.size() - 1));
    return outcome == 0 ? fromWide(title.data()) : std::string();
}

}  // namespace pellmark
