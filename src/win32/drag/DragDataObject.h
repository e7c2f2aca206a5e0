#pragma once

#include <string>
#include <vector>

#include "controls/grid/Grid.h"
#include "win32/WindowsApi.h"

#include <objidl.h>
#include <ole2.h>

namespace pellmark {

/// A drag's data as the system takes it: text as UTF-16 and in the ANSI code page, files as the paths that
/// the Explorer takes.
class DragDataObject : public IDataObject {
  public:
    /// The caller owns one reference.
    static IDataObject* create(const DragData& data) { return new DragDataObject(data); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** answer) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE GetData(FORMATETC* wanted, STGMEDIUM* medium) override;
    HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC* wanted, STGMEDIUM* medium) override;
    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* wanted) override;
    HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC* wanted, FORMATETC* canonical) override;
    HRESULT STDMETHODCALLTYPE SetData(FORMATETC* format, STGMEDIUM* medium, BOOL release) override;
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override;
    HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override;
    HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) override;
    HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) override;

  private:
    explicit DragDataObject(const DragData& data);
    virtual ~DragDataObject() = default;
    std::vector<CLIPFORMAT> formats() const;
    /// The bytes of one format, with the zeros that end it.
    std::string bytes(CLIPFORMAT format) const;

    ULONG references_ = 1;
    std::wstring text_;
    std::vector<std::wstring> files_;
};

}  // namespace pellmark
