#include "win32/drag/DragDataObject.h"

#include <shlobj.h>

#include <algorithm>
#include <cstring>

#include "win32/WideText.h"
#include "win32/ports/Win32CodePage.h"

namespace pellmark {

namespace {

FORMATETC onMemory(CLIPFORMAT format) {
    return {format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
}

std::string bytesOf(const std::wstring& text) {
    return {reinterpret_cast<const char*>(text.c_str()), (text.size() + 1) * sizeof(wchar_t)};
}

}  // namespace

DragDataObject::DragDataObject(const DragData& data) : text_(toWide(data.text)) {
    for (const std::string& each : data.files)
        files_.push_back(toWide(each));
}

HRESULT DragDataObject::QueryInterface(REFIID id, void** answer) {
    if (answer == nullptr) return E_POINTER;
    *answer = nullptr;
    if (id != IID_IUnknown && id != IID_IDataObject) return E_NOINTERFACE;
    *answer = static_cast<IDataObject*>(this);
    AddRef();
    return S_OK;
}

ULONG DragDataObject::AddRef() {
    return ++references_;
}

ULONG DragDataObject::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

std::vector<CLIPFORMAT> DragDataObject::formats() const {
    std::vector<CLIPFORMAT> offered;
    if (!text_.empty()) offered = {CF_UNICODETEXT, CF_TEXT};
    if (!files_.empty()) offered.push_back(CF_HDROP);
    return offered;
}

std::string DragDataObject::bytes(CLIPFORMAT format) const {
    if (format == CF_UNICODETEXT) return bytesOf(text_);
    if (format == CF_TEXT) return Win32CodePage().toAnsi(fromWide(text_)) + '\0';
    DROPFILES head{};
    head.pFiles = sizeof head;
    head.fWide = TRUE;
    std::string list(reinterpret_cast<const char*>(&head), sizeof head);
    for (const std::wstring& each : files_)
        list += bytesOf(each);
    return list + bytesOf({});
}

HRESULT DragDataObject::QueryGetData(FORMATETC* wanted) {
    if (wanted == nullptr) return E_POINTER;
    const auto offered = formats();
    if (std::find(offered.begin(), offered.end(), wanted->cfFormat) == offered.end()) return DV_E_FORMATETC;
    if (wanted->dwAspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    return (wanted->tymed & TYMED_HGLOBAL) != 0 ? S_OK : DV_E_TYMED;
}

HRESULT DragDataObject::GetData(FORMATETC* wanted, STGMEDIUM* medium) {
    if (medium == nullptr) return E_POINTER;
    *medium = {};
    const HRESULT offered = QueryGetData(wanted);
    if (FAILED(offered)) return offered;
    try {
        const std::string content = bytes(wanted->cfFormat);
        const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, content.size());
        if (memory == nullptr) return E_OUTOFMEMORY;
        std::memcpy(::GlobalLock(memory), content.data(), content.size());
        ::GlobalUnlock(memory);
        medium->tymed = TYMED_HGLOBAL;
        medium->hGlobal = memory;
        return S_OK;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

HRESULT DragDataObject::EnumFormatEtc(DWORD direction, IEnumFORMATETC** answer) {
    if (answer == nullptr) return E_POINTER;
    *answer = nullptr;
    if (direction != DATADIR_GET) return E_NOTIMPL;
    try {
        std::vector<FORMATETC> offered;
        for (const CLIPFORMAT each : formats())
            offered.push_back(onMemory(each));
        return ::SHCreateStdEnumFmtEtc(static_cast<UINT>(offered.size()), offered.data(), answer);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

HRESULT DragDataObject::GetDataHere(FORMATETC*, STGMEDIUM*) {
    return E_NOTIMPL;
}

HRESULT DragDataObject::GetCanonicalFormatEtc(FORMATETC*, FORMATETC* canonical) {
    if (canonical == nullptr) return E_POINTER;
    canonical->ptd = nullptr;
    return DATA_S_SAMEFORMATETC;
}

HRESULT DragDataObject::SetData(FORMATETC*, STGMEDIUM*, BOOL) {
    return E_NOTIMPL;
}

HRESULT DragDataObject::DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) {
    return OLE_E_ADVISENOTSUPPORTED;
}

HRESULT DragDataObject::DUnadvise(DWORD) {
    return OLE_E_ADVISENOTSUPPORTED;
}

HRESULT DragDataObject::EnumDAdvise(IEnumSTATDATA**) {
    return OLE_E_ADVISENOTSUPPORTED;
}

}  // namespace pellmark
