#include "win32/drag/DragDataObject.h"

#include <gmock/gmock.h>
#include <shellapi.h>

#include <cstring>

#include "win32/WideText.h"

namespace pellmark::test {
namespace {

using ::testing::ElementsAre;

class DragDataObjectTest : public ::testing::Test {
  protected:
    DragDataObjectTest() { ::OleInitialize(nullptr); }
    ~DragDataObjectTest() override {
        if (object != nullptr) object->Release();
        ::OleUninitialize();
    }
    void offer(const std::string& text, const std::vector<std::string>& files) {
        DragData data;
        data.text = text;
        data.files = files;
        object = DragDataObject::create(data);
    }
    std::string get(CLIPFORMAT format) const {
        FORMATETC wanted{format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
        STGMEDIUM medium{};
        if (FAILED(object->GetData(&wanted, &medium))) return "(none)";
        const std::string bytes(static_cast<const char*>(::GlobalLock(medium.hGlobal)),
                                ::GlobalSize(medium.hGlobal));
        ::GlobalUnlock(medium.hGlobal);
        ::ReleaseStgMedium(&medium);
        return bytes;
    }
    std::vector<CLIPFORMAT> formats() const {
        std::vector<CLIPFORMAT> found;
        IEnumFORMATETC* each = nullptr;
        EXPECT_EQ(object->EnumFormatEtc(DATADIR_GET, &each), S_OK);
        FORMATETC format{};
        while (each != nullptr && each->Next(1, &format, nullptr) == S_OK)
            found.push_back(format.cfFormat);
        if (each != nullptr) each->Release();
        return found;
    }
    static std::string clipboardText() {
        if (!::OpenClipboard(nullptr)) return "(no clipboard)";
        std::string text = "(none)";
        if (const HANDLE memory = ::GetClipboardData(CF_UNICODETEXT)) {
            text = fromWide(static_cast<const wchar_t*>(::GlobalLock(memory)));
            ::GlobalUnlock(memory);
        }
        ::CloseClipboard();
        return text;
    }

    IDataObject* object = nullptr;
};

TEST_F(DragDataObjectTest, TextComesAsUtf16AndInTheCodePage) {
    offer("A\tB\r\n", {});
    EXPECT_THAT(formats(), ElementsAre(CF_UNICODETEXT, CF_TEXT));
    EXPECT_EQ(std::wstring(reinterpret_cast<const wchar_t*>(get(CF_UNICODETEXT).c_str())), L"A\tB\r\n");
    EXPECT_STREQ(get(CF_TEXT).c_str(), "A\tB\r\n");
}

TEST_F(DragDataObjectTest, FilesComeAsTheExplorerTakesThem) {
    offer("", {"C:\\temp\\Processes.csv", "C:\\temp\\\xC3\xA9.csv"});
    EXPECT_THAT(formats(), ElementsAre(CF_HDROP));
    std::string bytes = get(CF_HDROP);
    const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    std::memcpy(::GlobalLock(memory), bytes.data(), bytes.size());
    ::GlobalUnlock(memory);
    const auto drop = static_cast<HDROP>(memory);
    ASSERT_EQ(::DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0), 2U);
    wchar_t path[MAX_PATH] = L"";
    ::DragQueryFileW(drop, 1, path, MAX_PATH);
    EXPECT_EQ(fromWide(path), "C:\\temp\\\xC3\xA9.csv");
    ::GlobalFree(memory);
}

TEST_F(DragDataObjectTest, WhatIsNotOfferedIsRefused) {
    offer("text", {});
    FORMATETC files{CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    FORMATETC stream{CF_TEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_ISTREAM};
    EXPECT_EQ(object->QueryGetData(&files), DV_E_FORMATETC);
    EXPECT_EQ(object->QueryGetData(&stream), DV_E_TYMED);
    EXPECT_EQ(get(CF_HDROP), "(none)");
    EXPECT_EQ(object->QueryGetData(nullptr), E_POINTER);
}

TEST_F(DragDataObjectTest, TheClipboardTakesTheObject) {
    offer("from the list", {});
    ASSERT_EQ(::OleSetClipboard(object), S_OK);
    ASSERT_EQ(::OleFlushClipboard(), S_OK);
    EXPECT_EQ(clipboardText(), "from the list");
}

TEST_F(DragDataObjectTest, ReferencesAreCounted) {
    offer("x", {});
    IUnknown* unknown = nullptr;
    ASSERT_EQ(object->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&unknown)), S_OK);
    EXPECT_EQ(unknown->Release(), 1U);
    void* other = &unknown;
    EXPECT_EQ(object->QueryInterface(IID_IDropTarget, &other), E_NOINTERFACE);
    EXPECT_EQ(other, nullptr);
}

}  // namespace
}  // namespace pellmark::test
