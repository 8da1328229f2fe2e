#include "workbench/AboutDlg.h"

#include "tavkit/drawing/TextBlock.h"
#include "tavkit/drawing/TextBlockMarks.h"
#include "tavkit/frame/services/CnfgLdr.h"
#include "workbench/resource.h"

#include <afxcmn.h>

#include <vector>

namespace workbench
{
namespace
{
constexpr char kBlockName[] = "About";
constexpr char kTitleFace[] = "Arial"; // has true bold letters at this size wherever the program runs
constexpr char kTextFace[] = "MS Shell Dlg";

// Places in the area, in dialog units.
constexpr int kIconLeft = 10;
constexpr int kIconTop = 12;
constexpr int kTextLeft = 44;
constexpr int kTitleTop = 10;
constexpr int kTitleHeight = 14;
constexpr int kTextTop = 30;
constexpr int kTextHeight = 9;

struct Line
{
    int top;
    int height;
    int weight;
    const char* face;
    std::string text;
};

void DrawLine(CDC& dc, CDialog& dialog, const Line& line)
{
    CRect place(kTextLeft, line.top, kTextLeft, line.top + line.height);
    dialog.MapDialogRect(place);
    CnfgLdr::TextBlock block;
    block.x = place.left;
    block.y = place.top;
    block.pszFont = line.face;
    block.nHeight = place.Height();
    block.nWeight = line.weight;
    block.crColor = ::GetSysColor(COLOR_WINDOWTEXT);
    block.strText = line.text.c_str();
    DrawTextBlock(&dc, block);
}
} // namespace

BEGIN_MESSAGE_MAP(AboutArea, CStatic)
    ON_WM_PAINT()
    ON_WM_ERASEBKGND() // never: painting covers every pixel
END_MESSAGE_MAP()

void AboutArea::OnPaint()
{
    CPaintDC dc(this);
    CRect client;
    GetClientRect(client);
    dc.FillSolidRect(client, ::GetSysColor(COLOR_WINDOW));
    if (const auto* block = CnfgLdr::Instance()->GetTextBlock(kBlockName); block != nullptr)
    {
        DrawTextBlock(&dc, *block);
        return;
    }
    auto& dialog = static_cast<CDialog&>(*GetParent());
    CRect icon(kIconLeft, kIconTop, kIconLeft, kIconTop);
    dialog.MapDialogRect(icon);
    dc.DrawIcon(icon.TopLeft(), AfxGetApp()->LoadIcon(IDR_MAIN));
    DrawLine(dc, dialog, {kTitleTop, kTitleHeight, FW_BOLD, kTitleFace, "TavKit Workbench"});
    DrawLine(
        dc, dialog,
        {kTextTop, kTextHeight, FW_NORMAL, kTextFace,
         "Shows pictures of microscopes and telescopes\nwith the components of " + std::string(tavkit::kMarkerWord)});
}

BOOL AboutArea::OnEraseBkgnd(CDC*) { return TRUE; }

AboutDlg::AboutDlg(CWnd* parent) : CDialog(IDD_ABOUT, parent), m_version(("Version " + ProgramVersion()).c_str()) {}

void AboutDlg::DoDataExchange(CDataExchange* exchange)
{
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_ABOUT_BLOCK, m_area);
    DDX_Text(exchange, IDC_ABOUT_VERSION, m_version);
}

std::string ProgramVersion()
{
    char program[MAX_PATH];
    ::GetModuleFileNameA(nullptr, program, sizeof program);
    std::vector<char> data(::GetFileVersionInfoSizeA(program, nullptr));
    void* text = nullptr;
    UINT length = 0; // with the closing NUL
    // The language and code page under which the resource keeps its texts.
    constexpr char kVersionPath[] = "\\StringFileInfo\\040904E4\\ProductVersion";
    if (data.empty() || !::GetFileVersionInfoA(program, 0, static_cast<DWORD>(data.size()), data.data()) ||
        !::VerQueryValueA(data.data(), kVersionPath, &text, &length) || length == 0)
    {
        return {};
    }
    return {static_cast<const char*>(text), length - 1};
}
} // namespace workbench
