#include "link/document.h"

#include "base/windows_api.h"
#include "link/error_log.h"

#include <msxml2.h>
#include <wrl/client.h>

#include <algorithm>
#include <utility>

namespace voltaro {
namespace {

using Microsoft::WRL::ComPtr;

// In no import library.
constexpr CLSID kClsidDomDocument30 = {0xF5078F32, 0xC551, 0x11D3, {0x89, 0xB9, 0x00, 0x00, 0xF8, 0x1F, 0xE2, 0x21}};
constexpr IID kIidXmlDomDocument = {0x2933BF81, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};

using Document = ComPtr<IXMLDOMDocument>;
using Node = ComPtr<IXMLDOMNode>;

// An owned platform string.
class Bstr {
public:
    Bstr() = default;
    explicit Bstr(std::wstring_view text)
        : m_text(SysAllocStringLen(text.data(), static_cast<UINT>(text.size())))
    {
    }
    ~Bstr() { SysFreeString(m_text); }
    // Overwrites the text: it may have carried a password.
    void Wipe() { SecureZeroMemory(m_text, SysStringByteLen(m_text)); }
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    [[nodiscard]] BSTR Get() const { return m_text; }
    [[nodiscard]] BSTR* Put()
    {
        SysFreeString(std::exchange(m_text, nullptr));
        return &m_text;
    }
    [[nodiscard]] std::wstring_view View() const
    {
        return m_text ? std::wstring_view(m_text, SysStringLen(m_text)) : std::wstring_view();
    }

private:
    BSTR m_text = nullptr;
};

// A VARIANT that borrows a string.
VARIANT Borrowed(const Bstr& text)
{
    VARIANT variant{};
    variant.vt = VT_BSTR;
    variant.bstrVal = text.Get();
    return variant;
}

constexpr const char* kCreateCall = "CoCreateInstance(__uuidof(DOMDocument30), NULL, CLSCTX_INPROC_SERVER, "
                                    "__uuidof(IXMLDOMDocument), (void**)&pxmldoc)";
constexpr const char* kCreateForFileCall = "CoCreateInstance(__uuidof(DOMDocument30),NULL,CLSCTX_INPROC_SERVER, "
                                           "__uuidof(IXMLDOMDocument),(void**)&pXMLDom)";

Document DomCreate(const char* call = kCreateCall, CodePlace where = CodePlace::Here())
{
    Document document;
    const bool made = Succeeded(CoCreateInstance(kClsidDomDocument30, nullptr, CLSCTX_INPROC_SERVER, kIidXmlDomDocument,
                                    reinterpret_cast<void**>(document.GetAddressOf())),
                          "Create a new DOMDocument", call, where)
        && Succeeded(document->put_async(VARIANT_FALSE), "should never fail", "pxmldoc->put_async(VARIANT_FALSE)")
        && Succeeded(document->put_validateOnParse(VARIANT_FALSE), "should never fail",
            "pxmldoc->put_validateOnParse(VARIANT_FALSE)")
        && Succeeded(document->put_resolveExternals(VARIANT_FALSE), "should never fail",
            "pxmldoc->put_resolveExternals(VARIANT_FALSE)");
    return made ? document : Document();
}

void ReportParseError(IXMLDOMDocument* document, const char* message, CodePlace where = CodePlace::Here())
{
    ComPtr<IXMLDOMParseError> error;
    Bstr reason;
    if (!Succeeded(document->get_parseError(&error), "", "pXMLDom->get_parseError(&pXMLErr)")
        || !Succeeded(error->get_reason(reason.Put()), "", "pXMLErr->get_reason(&bstr)"))
        return;
    std::string text(message);
    for (const wchar_t unit : reason.View())
        text += unit < 0x80 ? static_cast<char>(unit) : '?';
    LogFault("parse error", text.c_str(), where);
}

bool AppendChild(IXMLDOMNode* parent, IXMLDOMNode* child, const char* call = "pParent->appendChild(pChild, &pNode)")
{
    Node appended;
    return Succeeded(parent->appendChild(child, &appended), "", call);
}

void AddWhiteSpaceToNode(IXMLDOMDocument* document, const std::wstring& text, IXMLDOMNode* node)
{
    ComPtr<IXMLDOMText> space;
    if (Succeeded(document->createTextNode(Bstr(text).Get(), &space), "", "pDom->createTextNode(bstrWs,&pws)"))
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
ComPtr<IXMLDOMElement> AddSubElement(IXMLDOMDocument* document, const std::wstring& name, const std::wstring& text,
    IXMLDOMNode* parent, const AddCalls& calls)
{
    ComPtr<IXMLDOMElement> element;
    if (!Succeeded(document->createElement(Bstr(name).Get(), &element), "", calls.create))
        return nullptr;
    Succeeded(element->put_text(Bstr(text).Get()), "", calls.put);
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
    if (!Succeeded(
            document->createProcessingInstruction(Bstr(L"xml").Get(), Bstr(L"version='1.0'").Get(), &instruction),
            "createProcessingInstruction:", "pXMLDom->createProcessingInstruction( bstr,bstrs, &pi)")
        || !AppendChild(document, instruction.Get()))
        return nullptr;
    ComPtr<IXMLDOMElement> root;
    if (!Succeeded(document->createElement(Bstr(L"vltp").Get(), &root), "createelement",
            "pXMLDom->createElement(bstr, &pRootV)"))
        return nullptr;
    ComPtr<IXMLDOMAttribute> version;
    ComPtr<IXMLDOMAttribute> replaced;
    const Bstr number(L"1.0");
    const bool set = Succeeded(document->createAttribute(Bstr(L"version").Get(), &version), "",
                         "pXMLDom->createAttribute(bstr, &pAttribute)")
        && Succeeded(version->put_value(Borrowed(number)), "", "pAttribute->put_value(var)")
        && Succeeded(root->setAttributeNode(version.Get(), &replaced), "",
            "pRootV->setAttributeNode(pAttribute, &pAttributeOut)");
    return set && AppendChild(document, root.Get()) ? root : nullptr;
}

bool HasBlankEdge(std::wstring_view text)
{
    return text.empty() || text.front() <= L' ' || text.back() <= L' ';
}

// A leaf's text is the platform's text property of it, which trims blanks. That property is the dearest call of all:
// the value of an only text node is the same text at less than half the time, unless there is something to trim.
void ReadLeafText(IXMLDOMNode* leaf, IXMLDOMNode* onlyChild, std::wstring& text)
{
    VARIANT value{};
    if (onlyChild && SUCCEEDED(onlyChild->get_nodeValue(&value)) && value.vt == VT_BSTR) {
        text.assign(value.bstrVal, SysStringLen(value.bstrVal));
        VariantClear(&value);
        if (!HasBlankEdge(text))
            return;
    }
    Bstr whole;
    if (Succeeded(leaf->get_text(whole.Put()), "get_nodeValue:", "pNode->get_text(&bstr)"))
        text = whole.View();
}

void ReadElement(IXMLDOMNode* node, Element& element, int depth);

// Only elements count as children.
void ReadChild(IXMLDOMNode* child, Element& parent, int depth)
{
    Bstr name;
    if (depth >= kMaxDepth
        || !Succeeded(child->get_nodeName(name.Put()), "get_nodeName:", "pNode->get_nodeName(&bstr)"))
        return;
    parent.children.emplace_back();
    parent.children.back().name = name.View();
    ReadElement(child, parent.children.back(), depth + 1);
}

void ReadElement(IXMLDOMNode* node, Element& element, int depth)
{
    Node child;
    Node text;
    int others = 0;
    bool read = Succeeded(node->get_firstChild(&child), "get_item:", "pNodes->get_item(i, &pNode)");
    while (read && child) {
        DOMNodeType type = NODE_INVALID;
        Succeeded(child->get_nodeType(&type), "", "pNode->get_nodeType(&type)");
        if (type == NODE_ELEMENT) {
            ReadChild(child.Get(), element, depth);
        } else {
            ++others;
            text = type == NODE_TEXT ? child : nullptr;
        }
        Node next;
        read = Succeeded(child->get_nextSibling(&next), "get_item:", "pNodes->get_item(i, &pNode)");
        child = std::move(next);
    }
    if (element.children.empty() && others > 0)
        ReadLeafText(node, others == 1 ? text.Get() : nullptr, element.text);
}

std::optional<Element> ReadDocument(IXMLDOMDocument* document)
{
    ComPtr<IXMLDOMElement> root;
    if (!Succeeded(document->get_documentElement(&root), "", "pXMLDom->get_documentElement(&pRoot)") || !root)
        return std::nullopt;
    Element element;
    Bstr name;
    if (Succeeded(root->get_nodeName(name.Put()), "get_nodeName:", "pNode->get_nodeName(&bstr)"))
        element.name = name.View();
    ReadElement(root.Get(), element, 0);
    return element;
}

// The document of an answer's text; null when it is refused or cannot be loaded.
Document LoadAnswer(std::wstring_view text)
{
    if (DeclaresDocumentType(text)) {
        LogFault("loadXML", "an answer with a document type is refused");
        return nullptr;
    }
    Document document = DomCreate();
    VARIANT_BOOL loaded = VARIANT_FALSE;
    if (!document || !Succeeded(document->loadXML(Bstr(text).Get(), &loaded), "", "pXMLDom->loadXML(bstr, &status)"))
        return nullptr;
    if (loaded != VARIANT_TRUE) {
        ReportParseError(document.Get(), "an answer is not well-formed: ");
        return nullptr;
    }
    return document;
}

} // namespace

ComApartment::ComApartment()
{
    // Never released: leaving COM while a thread's storage is torn down is not allowed.
    thread_local const bool kept = SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
    m_entered = kept && SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
}

ComApartment::~ComApartment()
{
    if (m_entered)
        CoUninitialize();
}

std::optional<Element> ParseAnswer(const wchar_t* text)
{
    const ComApartment com;
    const Document document = LoadAnswer(text);
    return document ? ReadDocument(document.Get()) : std::nullopt;
}

std::optional<Element> ParseFile(const std::wstring& path, const char* module)
{
    const ComApartment com;
    const Document document = DomCreate(kCreateForFileCall, {module, __LINE__});
    if (!document)
        return std::nullopt;
    const Bstr name(path);
    VARIANT_BOOL loaded = VARIANT_FALSE;
    const HRESULT result = document->load(Borrowed(name), &loaded);
    if (FAILED(result) || loaded != VARIANT_TRUE) {
        LogFailure(module, __LINE__, "dom->load():", result, "pXMLDom->load(var, &status)");
        return std::nullopt;
    }
    return ReadDocument(document.Get());
}

std::optional<std::wstring> SerialiseRequest(const Element& request)
{
    const ComApartment com;
    const Document document = DomCreate();
    if (!document)
        return std::nullopt;
    const ComPtr<IXMLDOMElement> root = StartDocument(document.Get());
    if (!root)
        return std::nullopt;
    AddWhiteSpaceToNode(document.Get(), Indent(1), root.Get());
    ComPtr<IXMLDOMElement> element;
    if (!Succeeded(
            document->createElement(Bstr(request.name).Get(), &element), "", "pXMLDom->createElement(bstr, &pRoot)")
        || !AppendChild(root.Get(), element.Get()))
        return std::nullopt;
    AppendFields(document.Get(), element.Get(), request, kFieldDepth);
    AddWhiteSpaceToNode(document.Get(), Indent(1), element.Get());
    AddWhiteSpaceToNode(document.Get(), Indent(0), root.Get());
    Bstr xml;
    if (!Succeeded(document->get_xml(xml.Put()), "dom->get_xml", "pXMLDom->get_xml(&bstr)"))
        return std::nullopt;
    std::wstring text(xml.View());
    xml.Wipe();
    return text;
}

bool DeclaresDocumentType(std::wstring_view text)
{
    return text.find(L"<!DOCTYPE") != std::wstring_view::npos;
}

bool DeclaresDocumentType(std::string_view bytes)
{
    std::wstring text;
    for (const char byte : bytes) {
        if (byte != '\0')
            text.push_back(static_cast<unsigned char>(byte));
    }
    return DeclaresDocumentType(text);
}

std::wstring NewMessageId()
{
    GUID guid{};
    wchar_t text[130] = {};
    if (FAILED(CoCreateGuid(&guid)) || StringFromGUID2(guid, text, static_cast<int>(std::size(text))) == 0)
        return {};
    return text;
}

} // namespace voltaro
