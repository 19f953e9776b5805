// What favourites cost beside the platform's bare XML object, which loads the same files and walks every node
// of them: one favourite, the first listing of 200, both at most 1.5 times as long, and a second listing with
// nothing changed, under 50 ms. Times are in milliseconds.
#include "settings/FavoriteFileManager.h"

#include "Common/data_directories.h"
#include "settings/favorite_cache.h"
#include "settings/msxml.h"
#include "tests/settings/favorite_file_bytes.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace {

using msxml::Received;
using msxml::Variant;

constexpr int kFiles = 200;
constexpr int kRounds = 9;

double Milliseconds() {
    LARGE_INTEGER counter;
    LARGE_INTEGER frequency;
    QueryPerformanceCounter(&counter);
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(counter.QuadPart) * 1e3 / static_cast<double>(frequency.QuadPart);
}

// The middle one of several runs, per call.
template <class Operation>
double Measure(int calls, Operation operation) {
    std::array<double, kRounds> times{};
    for (double& time : times) {
        const double start = Milliseconds();
        for (int call = 0; call < calls; ++call)
            operation();
        time = (Milliseconds() - start) / calls;
    }
    std::ranges::nth_element(times, times.begin() + kRounds / 2);
    return times[kRounds / 2];
}

void Require(bool holds, const char* what) {
    if (!holds) {
        std::printf("failed: %s\n", what);
        std::exit(1);
    }
}

UniqueCom<IXMLDOMDocument> NewDocument() {
    static constexpr CLSID kClass = {
        0xf6d90f11, 0x9c73, 0x11d3, {0xb3, 0x2e, 0x00, 0xc0, 0x4f, 0x99, 0x0b, 0xb4}};
    static constexpr IID kInterface = {
        0x2933bf81, 0x7b36, 0x11d2, {0xb2, 0x0e, 0x00, 0xc0, 0x4f, 0x98, 0x3e, 0x60}};
    auto document = Received<IXMLDOMDocument>([](IXMLDOMDocument** to) {
        return CoCreateInstance(kClass, nullptr, CLSCTX_INPROC_SERVER, kInterface,
                                reinterpret_cast<void**>(to));
    });
    Require(document != nullptr, "the document object");
    document->put_async(VARIANT_FALSE);
    document->put_validateOnParse(VARIANT_FALSE);
    document->put_preserveWhiteSpace(VARIANT_TRUE);
    return document;
}

using UniqueNode = UniqueCom<IXMLDOMNode>;

// Type, name or text of every node, as a walk for them needs.
std::size_t Visit(IXMLDOMNode& node) {
    DOMNodeType type{};
    node.get_nodeType(&type);
    std::size_t units = 0;
    if (type == NODE_ELEMENT) {
        BSTR name = nullptr;
        node.get_nodeName(&name);
        const UniqueBStr owner(name);
        units += SysStringLen(name);
        UniqueNode child = Received<IXMLDOMNode>([&](IXMLDOMNode** to) { return node.get_firstChild(to); });
        while (child) {
            units += Visit(*child);
            child = Received<IXMLDOMNode>([&](IXMLDOMNode** to) { return child->get_nextSibling(to); });
        }
    } else if (type == NODE_TEXT || type == NODE_CDATA_SECTION) {
        Variant value;
        node.get_nodeValue(&value.Get());
        units += SysStringLen(value->bstrVal);
    }
    return units;
}

std::size_t LoadBare(const std::string& path) {
    const auto document = NewDocument();
    Variant source;
    source->vt = VT_BSTR;
    source->bstrVal = WrittenBStr(path).release();
    VARIANT_BOOL isLoaded = VARIANT_FALSE;
    document->load(source.Get(), &isLoaded);
    Require(isLoaded != VARIANT_FALSE, "the bare load");
    const auto root =
        Received<IXMLDOMElement>([&](IXMLDOMElement** to) { return document->get_documentElement(to); });
    return Visit(*root);
}

// The favourite directory with so many files, which go with it.
class Favorites {
  public:
    Favorites() {
        CreateFavoriteDirectory();
        const int length = GetFavoriteDirectory(m_directory.data(), m_directory.size());
        Require(length > 0, "the favourite directory");
        const std::string bytes = FavoriteFileBytes();
        std::printf("%d favourites of %zu bytes\n", kFiles, bytes.size());
        for (int number = 0; number < kFiles; ++number) {
            const std::string path =
                std::string(m_directory.data()) + "\\bench" + std::to_string(number) + ".pfk";
            std::ofstream(path, std::ios::binary) << bytes;
            m_paths.push_back(path);
        }
        Sleep(2 * kSettlingMilliseconds);
    }
    ~Favorites() {
        for (const std::string& path : m_paths)
            DeleteFileA(path.c_str());
    }
    Favorites(const Favorites&) = delete;
    Favorites& operator=(const Favorites&) = delete;

    const std::vector<std::string>& Paths() const { return m_paths; }
    const PathBuffer& Directory() const { return m_directory; }

  private:
    PathBuffer m_directory{};
    std::vector<std::string> m_paths;
};

// What the setting manager does for its list.
void List(const Favorites& favorites, FavoriteCache& cache) {
    CFavoriteFileManager manager({}, &cache);
    std::vector<std::string> names;
    manager.GetFindFavoriteFileList(names);
    std::vector<CFavoriteSetting> settings;
    settings.reserve(names.size());
    for (const std::string& name : names) {
        CFavoriteSetting setting;
        setting.Directory = favorites.Directory();
        name.copy(setting.Name.data(), setting.Name.size() - 1);
        Require(manager.ReadFavorite(&setting) == kFavoriteRead, "a favourite of the list");
        settings.push_back(setting);
    }
    Require(settings.size() >= kFiles, "the list");
}

void Print(const char* what, double ours, double bare) {
    std::printf("%-40s %9.3f ms   bare %9.3f ms   %5.2f times (at most 1.5)\n", what, ours, bare,
                ours / bare);
}

void MeasureAll() {
    const Favorites favorites;
    const std::string& one = favorites.Paths().front();
    CFavoriteFileManager manager({});
    CFavoriteSetting setting;
    const double bareOne = Measure(20, [&] { LoadBare(one); });
    const double ourOne = Measure(20, [&] {
        Require(manager.LoadFavoriteFromPath(setting, one.c_str()) == kFavoriteRead, "one favourite");
    });
    Print("one favourite", ourOne, bareOne);

    const double bareAll = Measure(1, [&] {
        for (const std::string& path : favorites.Paths())
            LoadBare(path);
    });
    const double first = Measure(1, [&] {
        FavoriteCache cache;
        List(favorites, cache);
    });
    Print("first listing of 200", first, bareAll);

    FavoriteCache cache;
    List(favorites, cache);
    const double second = Measure(1, [&] { List(favorites, cache); });
    std::printf("%-40s %9.3f ms   (under 50)\n", "second listing, nothing changed", second);
}

} // namespace

int main(int argc, char** argv) {
    // A sheet's thread has entered an apartment; "alone" measures without.
    const bool isAlone = argc > 1 && std::string_view(argv[1]) == "alone";
    if (isAlone) {
        std::puts("no apartment but the layer's own");
        const XmlLayer forTheBareObject;
        MeasureAll();
        return 0;
    }
    CoInitialize(nullptr);
    MeasureAll();
    CoUninitialize();
    return 0;
}
