#include "workbench/TablePane.h"

#include "tavkit/frame/services/BaseFuncs.h"
#include "tavkit/frame/services/OpenAttrData.h"
#include "workbench/resource.h"

#include <algorithm>
#include <vector>

namespace workbench
{
namespace
{
constexpr char kAllClasses[] = "All classes";
constexpr char kNoTable[] = "none; Ctrl+T opens one";

// All in dialog units.
constexpr int kGap = 4;
constexpr int kLabelWidth = 24;
constexpr int kClassLabelWidth = 22;
constexpr int kClassWidth = 92;
constexpr int kDroppedHeight = 110;
constexpr int kLabelDrop = 3; // puts a label's text on the base line of the box's
constexpr int kTextHeight = 8;
constexpr int kBoxHeight = 14;

std::vector<std::string> NamesOf(IAttrData& table)
{
    std::vector<std::string> names;
    for (int col = 0; col < table.GetNumCol(0); ++col)
    {
        names.emplace_back(table.GetColName(col, 0));
    }
    return names;
}

/// Opens a table. @param problem  receives a sentence on failure.
std::unique_ptr<IAttrData> OpenReader(const std::string& path, std::string& problem)
{
    DError error;
    auto reader = OpenAttrData(BDIMoniker(path.c_str(), nullptr), nullptr, &error);
    if (!reader)
    {
        problem = "\"" + path + "\" can't be opened as a table.\n\n" + error.GetErrorText().c_str();
    }
    return reader;
}
} // namespace

BEGIN_MESSAGE_MAP(TablePane, CWnd)
    ON_WM_SIZE()                                              // places its parts
    ON_WM_SETFOCUS()                                          // goes on to the part that had it last
    ON_NOTIFY(LVN_ITEMCHANGED, IDC_TABLE_LIST, OnItemChanged) // another row, another place
    ON_NOTIFY(NM_SETFOCUS, IDC_TABLE_LIST, OnListFocus)
    ON_CONTROL(CBN_SETFOCUS, IDC_TABLE_CLASS, OnClassFocus)
    ON_CONTROL(CBN_DROPDOWN, IDC_TABLE_CLASS, OnClassDropDown) // more classes may be known by now
    ON_CBN_SELCHANGE(IDC_TABLE_CLASS, OnClassChosen)
END_MESSAGE_MAP()

BOOL TablePane::Create(const RECT& rect, CWnd* parent, UINT id, CFont* font, const DialogUnits& units)
{
    m_font = font;
    m_units = units;
    const LPCTSTR windowClass = AfxRegisterWndClass(0, ::LoadCursorA(nullptr, IDC_ARROW),
                                                    reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_3DFACE + 1)));
    constexpr DWORD kPart = WS_CHILD | WS_VISIBLE;
    const CRect nowhere(0, 0, 0, 0);
    // The Tab key looks into it. The order of its parts is that of the key; a label stands before what it names.
    if (!CWnd::CreateEx(WS_EX_CONTROLPARENT, windowClass, "", kPart | WS_CLIPCHILDREN, rect, parent, id) ||
        !m_label.Create("&Table:", kPart, nowhere, this, IDC_TABLE_LABEL) ||
        !m_name.Create(kNoTable, kPart | SS_NOPREFIX | SS_ENDELLIPSIS, nowhere, this, IDC_TABLE_NAME) ||
        !m_classLabel.Create("C&lass:", kPart, nowhere, this, IDC_TABLE_CLASS_LABEL) ||
        !m_classBox.Create(kPart | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, nowhere, this, IDC_TABLE_CLASS))
    {
        return FALSE;
    }
    for (CWnd* part : std::initializer_list<CWnd*>{&m_label, &m_name, &m_classLabel, &m_classBox})
    {
        part->SetFont(m_font, FALSE);
    }
    return Show({}, nullptr).empty();
}

std::string TablePane::OpenTable(const std::string& path)
{
    const CWaitCursor wait;
    std::string problem;
    auto reader = OpenReader(path, problem);
    if (!reader)
    {
        return problem;
    }
    m_classes.Clear();
    const ObjectColumns columns = FindObjectColumns(NamesOf(*reader));
    return Show({path, columns, std::nullopt}, std::move(reader));
}

void TablePane::SaveToFile()
{
    {
        const CWaitCursor wait;
        m_list->ReadAllRows();
    }
    m_list->SaveToFile();
}

/// Makes a list for the table and puts it in the place of the present one.
std::string TablePane::Show(const Shown& shown, std::unique_ptr<IAttrData> reader)
{
    const bool hasTable = reader != nullptr;
    auto list = std::make_unique<ObjectList>(std::move(reader), shown.columns, shown.category, m_classes);
    if (!list->Create(ListRect(), this, IDC_TABLE_LIST, m_font))
    {
        return "The system has no room for another list.";
    }
    list->SetWindowPos(&m_classBox, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE); // behind it in Tab order
    if (hasTable)
    {
        list->ShowTable();
        m_name.SetWindowText(StripPath(shown.path.c_str()).c_str());
    }
    if (hasTable && shown.path == m_shown.path) // the same rows, or some of them: they look as they did
    {
        list->TakeWidths(*m_list);
        if (const CListCtrlFlex::LastSort order = m_list->GetLastSort(); order.GetCol() >= 0)
        {
            list->Sort(order.GetCol(), order.IsSortedAscnd());
            list->GetLastSort() = order;
        }
    }
    else if (hasTable)
    {
        list->FitColumns();
    }
    const bool hadFocus = m_list && ::GetFocus() == m_list->m_hWnd;
    m_focus = m_focus == m_list.get() ? nullptr : m_focus;
    m_list = std::move(list);
    m_shown = shown;
    if (hadFocus)
    {
        m_list->SetFocus();
    }
    FillClasses();
    m_classBox.EnableWindow(shown.columns.category >= 0);
    UpdatePlace();
    return {};
}

CRect TablePane::ListRect() const
{
    CRect client;
    GetClientRect(client);
    client.top += m_units.Y(kBoxHeight + kGap / 2);
    return client;
}

void TablePane::PlaceParts()
{
    CRect client;
    GetClientRect(client);
    const int labelTop = m_units.Y(kLabelDrop);
    const int textHeight = m_units.Y(kTextHeight);
    const int classLeft = client.right - m_units.X(kClassWidth);
    const int classLabelLeft = classLeft - m_units.X(kClassLabelWidth);
    const int nameLeft = m_units.X(kLabelWidth);
    m_label.MoveWindow(0, labelTop, nameLeft, textHeight);
    m_name.MoveWindow(nameLeft, labelTop, std::max(0, classLabelLeft - m_units.X(kGap) - nameLeft), textHeight);
    m_classLabel.MoveWindow(classLabelLeft, labelTop, m_units.X(kClassLabelWidth), textHeight);
    m_classBox.MoveWindow(classLeft, 0, m_units.X(kClassWidth), m_units.Y(kDroppedHeight));
    if (m_list)
    {
        m_list->MoveWindow(ListRect());
        m_list->FillWidth();
    }
}

/// All classes that are known by now, with the chosen one selected. A box that holds them already isn't filled anew: it
/// may be dropped down.
void TablePane::FillClasses()
{
    std::vector<std::string> lines{kAllClasses};
    lines.insert(lines.end(), m_classes.All().begin(), m_classes.All().end());
    std::vector<std::string> present;
    for (int i = 0; i < m_classBox.GetCount(); ++i)
    {
        CString line;
        m_classBox.GetLBText(i, line);
        present.emplace_back(line);
    }
    if (lines != present)
    {
        m_classBox.ResetContent();
        for (const std::string& line : lines)
        {
            m_classBox.AddString(line.c_str());
        }
    }
    const auto chosen = m_shown.category ? std::find(lines.begin() + 1, lines.end(), *m_shown.category) : lines.end();
    m_classBox.SetCurSel(chosen == lines.end() ? 0 : static_cast<int>(chosen - lines.begin()));
}

bool TablePane::SelectTableRow(int tableRow)
{
    if (m_list->SelectTableRow(tableRow))
    {
        return true;
    }
    if (!m_shown.category)
    {
        return false;
    }
    m_classBox.SetCurSel(0); // all
    OnClassChosen();
    return m_list->SelectTableRow(tableRow);
}

void TablePane::UpdatePlace()
{
    const std::optional<ObjectPlace> place = m_list->SelectedPlace();
    if (place != m_place)
    {
        m_place = place;
        Tell(tablePlaceChanged);
    }
}

void TablePane::Tell(TablePaneNotice notice)
{
    GetParent()->SendMessage(WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), notice), reinterpret_cast<LPARAM>(m_hWnd));
}

void TablePane::OnSize(UINT, int, int)
{
    if (m_classBox.GetSafeHwnd() != nullptr)
    {
        PlaceParts();
    }
}

void TablePane::OnSetFocus(CWnd*)
{
    (m_focus != nullptr && m_focus->IsWindowEnabled() ? m_focus : m_list.get())->SetFocus();
}

void TablePane::OnItemChanged(NMHDR* header, LRESULT*)
{
    const auto& change = *reinterpret_cast<const NMLISTVIEW*>(header);
    if (m_list && header->hwndFrom == m_list->m_hWnd && (change.uChanged & LVIF_STATE) != 0 &&
        ((change.uNewState ^ change.uOldState) & LVIS_SELECTED) != 0)
    {
        UpdatePlace();
    }
}

void TablePane::OnListFocus(NMHDR*, LRESULT*)
{
    m_focus = m_list.get();
    Tell(tableFocus);
}

void TablePane::OnClassFocus()
{
    m_focus = &m_classBox;
    Tell(tableFocus);
}

void TablePane::OnClassDropDown() { FillClasses(); }

void TablePane::OnClassChosen()
{
    Shown shown = m_shown;
    const int index = m_classBox.GetCurSel();
    shown.category.reset();
    if (index > 0) // behind the line for all
    {
        CString name;
        m_classBox.GetLBText(index, name);
        shown.category = static_cast<LPCTSTR>(name);
    }
    if (shown.category == m_shown.category)
    {
        return;
    }
    const CWaitCursor wait;
    std::string problem;
    if (auto reader = OpenReader(shown.path, problem))
    {
        problem = Show(shown, std::move(reader));
    }
    if (!problem.empty())
    {
        FillClasses(); // back to what is shown
        AfxMessageBox(problem.c_str(), MB_OK | MB_ICONEXCLAMATION);
    }
}
} // namespace workbench
