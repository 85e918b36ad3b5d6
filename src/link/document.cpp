#include "link/document.h"

#include "base/com_apartment.h"
#include "base/error_log.h"
#include "base/windows_api.h"
#include "link/refused_document.h"

#include <msxml2.h>
#include <wrl/client.h>

#include <new>
#include <utility>

namespace voltaro {
namespace {

using Microsoft::WRL::ComPtr;

// In no import library.
constexpr CLSID kClsidDomDocument30 = {0xF5078F32, 0xC551, 0x11D3, {0x89, 0xB9, 0x00, 0x00, 0xF8, 0x1F, 0xE2, 0x21}};
constexpr IID kIidXmlDomDocument = {0x2933BF81, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};

using Document = ComPtr<IXMLDOMDocument>;
using Node = ComPtr<IXMLDOMNode>;

// An owned BSTR.
class Bstr {
public:
    Bstr() = default;
    explicit Bstr(std::wstring_view text)
        : m_text(SysAllocStringLen(text.data(), static_cast<UINT>(text.size())))
    {
        if (!m_text) // a null string would pass for an empty text
            throw std::bad_alloc();
    }
    // Takes the string of a VARIANT that holds one.
    explicit Bstr(VARIANT* variant)
        : m_text(std::exchange(variant->bstrVal, nullptr))
    {
        variant->vt = VT_EMPTY;
    }
    ~Bstr() { Free(); }
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    [[nodiscard]] BSTR Get() const { return m_text; }
    [[nodiscard]] BSTR* Put()
    {
        Free();
        return &m_text;
    }
    [[nodiscard]] std::wstring_view View() const
    {
        return m_text ? std::wstring_view(m_text, SysStringLen(m_text)) : std::wstring_view();
    }

private:
    // Wiped, since the platform keeps freed strings for reuse.
    void Free()
    {
        WipeMemory(m_text, SysStringByteLen(m_text));
        SysFreeString(std::exchange(m_text, nullptr));
    }

    BSTR m_text = nullptr;
};

// A VARIANT over a string that it does not own.
VARIANT VariantOf(const Bstr& text)
{
    VARIANT variant{};
    variant.vt = VT_BSTR;
    variant.bstrVal = text.Get();
    return variant;
}

// The log names the console's main source module for every call on a document but those on the host configuration.
constexpr const char* kMainModule = "src/shell/main.cpp";

// The check for a COM call: true when it succeeded, else a log line in the name of `module`.
bool Done(HRESULT result, const char* label, const char* call, const char* module = kMainModule,
    unsigned line = __builtin_LINE())
{
    if (FAILED(result))
        LogFailure(module, line, label, result, call);
    return SUCCEEDED(result);
}

constexpr const char* kCreateCall = "CoCreateInstance(__uuidof(DOMDocument30), NULL, CLSCTX_INPROC_SERVER, "
                                    "__uuidof(IXMLDOMDocument), (void**)&pxmldoc)";
constexpr const char* kCreateForFileCall = "CoCreateInstance(__uuidof(DOMDocument30),NULL,CLSCTX_INPROC_SERVER, "
                                           "__uuidof(IXMLDOMDocument),(void**)&pXMLDom)";

// The thread's own, since apartments do not share it. Kept, for CoCreateInstance looks the class up at every call,
// which takes longer than all other steps of a short document. No owner: COM must not be called while a thread's
// storage is torn down.
thread_local IClassFactory* classObject = nullptr;

// Creates an empty document of the thread's apartment.
HRESULT CreateDocument(Document& document)
{
    if (!classObject) {
        const HRESULT found = CoGetClassObject(kClsidDomDocument30, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
            reinterpret_cast<void**>(&classObject));
        if (FAILED(found))
            return found;
    }
    return classObject->CreateInstance(nullptr, kIidXmlDomDocument, reinterpret_cast<void**>(document.GetAddressOf()));
}

Document DomCreate(const char* call = kCreateCall, const char* module = kMainModule)
{
    Document document;
    const bool made = Done(CreateDocument(document), "Create a new DOMDocument", call, module)
        && Done(document->put_async(VARIANT_FALSE), "should never fail", "pxmldoc->put_async(VARIANT_FALSE)", module)
        && Done(document->put_validateOnParse(VARIANT_FALSE), "should never fail",
            "pxmldoc->put_validateOnParse(VARIANT_FALSE)", module)
        && Done(document->put_resolveExternals(VARIANT_FALSE), "should never fail",
            "pxmldoc->put_resolveExternals(VARIANT_FALSE)", module);
    return made ? document : Document();
}

// What the log calls the two steps of reading a parse error.
struct ParseErrorCalls {
    const char *errorLabel, *error, *reasonLabel, *reason;
};
constexpr ParseErrorCalls kAfterLoad = {"", "pXMLDom->get_parseError(&pXMLErr)", "", "pXMLErr->get_reason(&bstr)"};
constexpr ParseErrorCalls kAfterSelect = {"dom->get_parseError:", "pDom->get_parseError(&pXMLErr)",
    "parseError->get_reason:", "pXMLErr->get_reason(&bstrReason)"};

// Logs the document's parse error and its reason with the message.
void ReportParseError(IXMLDOMDocument* document, const char* message, const ParseErrorCalls& calls, const char* module)
{
    ComPtr<IXMLDOMParseError> error;
    Bstr reason;
    long code = S_OK;
    if (!Done(document->get_parseError(&error), calls.errorLabel, calls.error, module)
        || !Done(error->get_reason(reason.Put()), calls.reasonLabel, calls.reason, module))
        return;
    static_cast<void>(error->get_errorCode(&code));
    std::string text;
    for (const wchar_t unit : reason.View())
        text += unit < 0x80 ? static_cast<char>(unit) : '?';
    LogFailure(module, __LINE__, message, code, text.c_str());
}

bool AppendChild(IXMLDOMNode* parent, IXMLDOMNode* child, const char* call = "pParent->appendChild(pChild, &pNode)")
{
    Node appended;
    return Done(parent->appendChild(child, &appended), "", call);
}

void AddWhiteSpaceToNode(IXMLDOMDocument* document, const std::wstring& text, IXMLDOMNode* node)
{
    ComPtr<IXMLDOMText> space;
    if (Done(document->createTextNode(Bstr(text).Get(), &space), "", "pDom->createTextNode(bstrWs,&pws)"))
        AppendChild(node, space.Get(), "pNode->appendChild(pws,&pBuf)");
}

// What the log calls the two steps of adding an element.
struct AddCalls {
    const char* create;
    const char* put;
};
constexpr AddCalls kAddField = {"pXMLDom->createElement(node,&pe)", "pe->put_text(nodevalue)"};
constexpr AddCalls kAddNestedField = {"pXMLDom->createElement(subnode,&peSub)", "peSub->put_text(subnodevalue)"};

// Appends an element with a text to the parent; returns it, or null after a log line.
ComPtr<IXMLDOMElement> AddSubElement(IXMLDOMDocument* document, std::wstring_view name, std::wstring_view text,
    IXMLDOMNode* parent, const AddCalls& calls)
{
    ComPtr<IXMLDOMElement> element;
    if (!Done(document->createElement(Bstr(name).Get(), &element), "", calls.create))
        return nullptr;
    Done(element->put_text(Bstr(text).Get()), "", calls.put);
    return AppendChild(parent, element.Get()) ? element : nullptr;
}

std::wstring Indent(int depth)
{
    return L"\n" + std::wstring(static_cast<std::size_t>(depth), L'\t');
}

constexpr int kFieldDepth = 2;

// Appends the children of `element` to `node`, each on a line of its own at `depth` tabs.
void AppendFields(IXMLDOMDocument* document, IXMLDOMNode* node, const Element& element, int depth)
{
    for (const Element& child : element.children) {
        AddWhiteSpaceToNode(document, Indent(depth), node);
        const AddCalls& calls = depth == kFieldDepth ? kAddField : kAddNestedField;
        if (const auto made = AddSubElement(document, child.name, child.text, node, calls))
            AppendFields(document, made.Get(), child, depth + 1);
    }
}

// The processing instruction and the root with its version.
ComPtr<IXMLDOMElement> StartDocument(IXMLDOMDocument* document)
{
    ComPtr<IXMLDOMProcessingInstruction> instruction;
    if (!Done(document->createProcessingInstruction(Bstr(L"xml").Get(), Bstr(L"version='1.0'").Get(), &instruction),
            "createProcessingInstruction:", "pXMLDom->createProcessingInstruction( bstr,bstrs, &pi)")
        || !AppendChild(document, instruction.Get()))
        return nullptr;
    ComPtr<IXMLDOMElement> root;
    if (!Done(document->createElement(Bstr(L"vltp").Get(), &root), "createelement",
            "pXMLDom->createElement(bstr, &pRootV)"))
        return nullptr;
    ComPtr<IXMLDOMAttribute> version;
    ComPtr<IXMLDOMAttribute> replaced;
    const Bstr number(L"1.0");
    const bool set = Done(document->createAttribute(Bstr(L"version").Get(), &version), "",
                         "pXMLDom->createAttribute(bstr, &pAttribute)")
        && Done(version->put_value(VariantOf(number)), "", "pAttribute->put_value(var)")
        && Done(root->setAttributeNode(version.Get(), &replaced), "",
            "pRootV->setAttributeNode(pAttribute, &pAttributeOut)");
    return set && AppendChild(document, root.Get()) ? root : nullptr;
}

bool HasBlankEdge(std::wstring_view text)
{
    return text.empty() || text.front() <= L' ' || text.back() <= L' ';
}

// Reads a document as elements. One walk serves every list that is then chosen from the tree, in place of a selection
// a list; its calls are logged as the steps of a selection that they stand for.
class TreeReader {
public:
    explicit TreeReader(const char* module)
        : m_module(module)
    {
    }

    std::optional<Element> Read(IXMLDOMDocument* document) const
    {
        ComPtr<IXMLDOMElement> root;
        if (!Check(document->get_documentElement(&root), "selectNodes", "pXMLDom->selectNodes(bstr, &pNodes)"))
            return std::nullopt;
        if (!root) {
            ReportParseError(document, "Error while calling selectNodes", kAfterSelect, m_module);
            return std::nullopt;
        }
        Element element;
        ReadName(root.Get(), element);
        ReadContent(root.Get(), element, 0);
        return element;
    }

private:
    bool Check(HRESULT result, const char* label, const char* call, unsigned line = __builtin_LINE()) const
    {
        return Done(result, label, call, m_module, line);
    }

    bool ReadName(IXMLDOMNode* node, Element& element) const
    {
        Bstr name;
        const bool read = Check(node->get_nodeName(name.Put()), "get_nodeName:", "pNode->get_nodeName(&bstr)");
        element.name = name.View();
        return read;
    }

    // A leaf's text is the platform's text property of it, which trims blanks. That property is the slowest call of
    // all: the value of an only text node is the same text at less than half the time, unless there is something to
    // trim.
    void ReadLeafText(IXMLDOMNode* leaf, IXMLDOMNode* onlyChild, FieldText& text) const
    {
        VARIANT value{};
        if (onlyChild && SUCCEEDED(onlyChild->get_nodeValue(&value)) && value.vt == VT_BSTR) {
            const Bstr owned(&value);
            if (!HasBlankEdge(owned.View())) {
                text = owned.View();
                return;
            }
        }
        Bstr whole;
        if (Check(leaf->get_text(whole.Put()), "get_nodeValue:", "pNode->get_text(&bstr)"))
            text = whole.View();
    }

    // Only elements count as children.
    void ReadChild(IXMLDOMNode* child, Element& parent, int depth) const
    {
        Element element;
        if (depth >= kMaxDepth || !ReadName(child, element))
            return;
        ReadContent(child, parent.children.emplace_back(std::move(element)), depth + 1);
    }

    void ReadContent(IXMLDOMNode* node, Element& element, int depth) const
    {
        Node child;
        Node text;
        int others = 0;
        bool read = Check(node->get_firstChild(&child), "get_length:", "pNodes->get_length(&length)");
        while (read && child) {
            DOMNodeType type = NODE_INVALID;
            Check(child->get_nodeType(&type), "get_item:", "pNodes->get_item(i, &pNode)");
            if (type == NODE_ELEMENT) {
                ReadChild(child.Get(), element, depth);
            } else {
                ++others;
                text = type == NODE_TEXT ? child : nullptr;
            }
            Node next;
            read = Check(child->get_nextSibling(&next), "get_item:", "pNodes->get_item(i, &pNode)");
            child = std::move(next);
        }
        if (element.children.empty() && others > 0)
            ReadLeafText(node, others == 1 ? text.Get() : nullptr, element.text);
    }

    const char* m_module;
};

// The document of an answer's text; null when it is refused or cannot be loaded.
Document LoadAnswer(std::wstring_view text)
{
    if (const char* reason = RefusedDocument(text)) {
        LogFailure(kMainModule, __LINE__, "loadXML", E_FAIL, reason);
        return nullptr;
    }
    Document document = DomCreate();
    VARIANT_BOOL loaded = VARIANT_FALSE;
    if (!document || !Done(document->loadXML(Bstr(text).Get(), &loaded), "", "pXMLDom->loadXML(bstr, &status)"))
        return nullptr;
    if (loaded != VARIANT_TRUE) {
        ReportParseError(document.Get(), "an answer is not well-formed", kAfterLoad, kMainModule);
        return nullptr;
    }
    return document;
}

} // namespace

std::optional<Element> ParseAnswer(const wchar_t* text)
{
    EnterComApartment();
    const Document document = LoadAnswer(text);
    return document ? TreeReader(kMainModule).Read(document.Get()) : std::nullopt;
}

std::optional<Element> ParseFile(const std::wstring& path, const char* module)
{
    EnterComApartment();
    const Document document = DomCreate(kCreateForFileCall, module);
    if (!document)
        return std::nullopt;
    const Bstr name(path);
    VARIANT_BOOL loaded = VARIANT_FALSE;
    // A file that is missing or not well-formed ends the reading without a line: the call itself succeeds.
    if (!Done(document->load(VariantOf(name), &loaded), "dom->load():", "pXMLDom->load(var, &status)", module)
        || loaded != VARIANT_TRUE)
        return std::nullopt;
    return TreeReader(module).Read(document.Get());
}

std::optional<FieldText> SerialiseRequest(const Element& request)
{
    EnterComApartment();
    const Document document = DomCreate();
    if (!document)
        return std::nullopt;
    const ComPtr<IXMLDOMElement> root = StartDocument(document.Get());
    if (!root)
        return std::nullopt;
    AddWhiteSpaceToNode(document.Get(), Indent(1), root.Get());
    ComPtr<IXMLDOMElement> element;
    if (!Done(document->createElement(Bstr(request.name).Get(), &element), "", "pXMLDom->createElement(bstr, &pRoot)")
        || !AppendChild(root.Get(), element.Get()))
        return std::nullopt;
    AppendFields(document.Get(), element.Get(), request, kFieldDepth);
    AddWhiteSpaceToNode(document.Get(), Indent(1), element.Get());
    AddWhiteSpaceToNode(document.Get(), Indent(0), root.Get());
    Bstr xml;
    if (!Done(document->get_xml(xml.Put()), "dom->get_xml", "pXMLDom->get_xml(&bstr)"))
        return std::nullopt;
    return FieldText(xml.View());
}

void ReleaseDocumentClass()
{
    if (IClassFactory* held = std::exchange(classObject, nullptr))
        held->Release();
}

std::wstring NewMessageId()
{
    GUID guid{};
    wchar_t text[130] = {};
    const bool made = Done(CoCreateGuid(&guid), "identifier", "CoCreateGuid")
        && Done(StringFromGUID2(guid, text, static_cast<int>(std::size(text))) > 0 ? S_OK : E_FAIL, "identifier",
            "StringFromGUID2");
    return made ? text : L"";
}

} // namespace voltaro
