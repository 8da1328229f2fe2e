// Combo.cpp - [combo] a keystroke in a combo box that filters, against clearing and refilling a raw one
#include "bench/Bench.h"
#include "bench/ListWindows.h"
#include "tavkit/widgets/TavComboBox.h"

#include <array>
#include <cstring>
#include <string>

namespace bench
{
namespace
{

constexpr double kTarget = 1.15;
constexpr int kEntries = 10'000;
constexpr char kFirstLetter = 'a';
constexpr int kLetters = 10;                    ///< that entries begin with
constexpr int kMatches = kEntries / kLetters;   ///< of each letter
constexpr int kPasses = 20;                     ///< in one run of the matching
constexpr std::array<char, 2> kTyped{'c', 'g'}; ///< in turns, so that each keystroke exchanges all that is shown
constexpr CRect kPlace(10, 10, 210, 310);
constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL | CBS_HASSTRINGS;

std::string EntryText(int i)
{
    return static_cast<char>(kFirstLetter + i % kLetters) + std::string(" picture ") + std::to_string(i);
}

/// The combo box with its rule of matching, as a class derived from it finds it.
class FilteringCombo : public CTavComboBox
{
public:
    using CTavComboBox::BackupContents;

    [[nodiscard]] DVectorSafe<ComboItem> const& Items() const { return m_Backup; }
    [[nodiscard]] FltrFunc Filter() const { return m_pFltrFunc; }
};

/// A window with both combo boxes in it, their lists down.
class Combos
{
public:
    Combos()
    {
        Require(m_frame.CreateEx(0, AfxRegisterWndClass(0), "combo", WS_POPUP | WS_VISIBLE, CRect(0, 0, 500, 400),
                                 nullptr, 0) != FALSE,
                "there is no window for the combo boxes");
        Require(m_ours.Create(kStyle, kPlace, &m_frame, 1) != FALSE, "there is no combo box");
        m_ours.EnableAutoComplete(true, true);
        for (int i = 0; i < kEntries; ++i)
        {
            m_ours.SetItemData(m_ours.AddString(EntryText(i).c_str()), static_cast<DWORD_PTR>(i));
        }
        m_raw = ::CreateWindowExA(0, WC_COMBOBOXA, "", kStyle, kPlace.left + kPlace.Width(), kPlace.top, kPlace.Width(),
                                  kPlace.Height(), m_frame.m_hWnd, nullptr, nullptr, nullptr);
        Require(m_raw != nullptr, "there is no raw combo box");
        for (HWND const combo : {m_ours.m_hWnd, m_raw})
        {
            ::SendMessageA(combo, WM_SETFONT, reinterpret_cast<WPARAM>(::GetStockObject(DEFAULT_GUI_FONT)), FALSE);
        }
        ::SendMessageA(m_raw, CB_SHOWDROPDOWN, TRUE, 0);
        Type();
    }
    ~Combos() { m_frame.DestroyWindow(); }
    Combos(Combos const&) = delete;
    Combos& operator=(Combos const&) = delete;

    /// One letter in place of the whole text of our combo box.
    void Type()
    {
        m_turn = 1 - m_turn;
        HWND const edit = ::GetWindow(m_ours, GW_CHILD);
        ::SendMessageA(edit, EM_SETSEL, 0, -1);
        ::SendMessageA(edit, WM_CHAR, static_cast<WPARAM>(kTyped[m_turn]), 1);
    }

    /// Other entries of one letter in place of those in the raw combo box.
    void Refill()
    {
        m_rawTurn = 1 - m_rawTurn;
        ::SendMessageA(m_raw, CB_RESETCONTENT, 0, 0);
        for (auto const& [text, data] : m_matches[m_rawTurn])
        {
            auto const at =
                ::SendMessageA(m_raw, CB_INSERTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text.c_str()));
            ::SendMessageA(m_raw, CB_SETITEMDATA, static_cast<WPARAM>(at), data);
        }
    }

    /// That a combo box shows the entries of the letter typed last into it.
    void Check(HWND combo, std::size_t turn) const
    {
        Require(::SendMessageA(combo, CB_GETCOUNT, 0, 0) == kMatches, "the list has another number of entries");
        auto const& [text, data] = m_matches[turn].back();
        std::array<char, 64> last{};
        ::SendMessageA(combo, CB_GETLBTEXT, kMatches - 1, reinterpret_cast<LPARAM>(last.data()));
        Require(text == last.data(), "the list has other entries");
        Require(::SendMessageA(combo, CB_GETITEMDATA, kMatches - 1, 0) == data, "the entries have other data");
    }

    [[nodiscard]] Row MeasureKeystroke()
    {
        return Measure(
            "combo.keystroke", [&] { Refill(); }, kTarget);
    }

    /// Against a program that knows that a list need not be drawn while it is filled.
    [[nodiscard]] Row MeasureQuietKeystroke()
    {
        COMBOBOXINFO info{};
        info.cbSize = sizeof info;
        ::GetComboBoxInfo(m_raw, &info);
        return Measure(
            "combo.keystroke quiet",
            [&] {
                NoRedraw const quiet(info.hwndList);
                Refill();
            },
            std::nullopt);
    }

    [[nodiscard]] Row MeasureMatching()
    {
        char const typed[] = {kTyped[0], ' ', '\0'};
        int found = 0;
        auto const check = [&] { Require(found == kMatches * kPasses, "another number of entries matches"); };
        auto const& items = m_ours.Items();
        Medians const medians = Interleave({[&] {
                                                found = 0;
                                                for (int i = 0; i < kPasses; ++i)
                                                {
                                                    DVector<int> matches(true);
                                                    m_ours.Filter()(&m_ours, typed, &items, &matches);
                                                    found += matches.GetCount();
                                                }
                                            },
                                            nullptr, check},
                                           {[&] {
                                                found = 0;
                                                for (int i = 0; i < kPasses; ++i)
                                                {
                                                    found += static_cast<int>(OnePass(items, typed).size());
                                                }
                                            },
                                            nullptr, check});
        return {"combo.match", kEntries * kPasses, medians.ours, medians.reference, kTarget};
    }

    /// The keystroke that begins an edit: all entries are backed up, and all are shown on either side.
    [[nodiscard]] Row MeasureFirstKeystroke()
    {
        Medians const medians =
            Interleave({[&] { Type(); }, [&] { m_ours.ShowDropDown(FALSE); }, [&] { Check(m_ours, m_turn); }},
                       {[&] { Refill(); }, [&] { FillWhole(); }, [&] { Check(m_raw, m_rawTurn); }});
        return {"combo.first", kEntries, medians.ours, medians.reference, std::nullopt};
    }

private:
    /// All entries in the raw combo box, whose list is closed.
    void FillWhole() const
    {
        ::SendMessageA(m_raw, CB_SHOWDROPDOWN, FALSE, 0);
        ::SendMessageA(m_raw, CB_RESETCONTENT, 0, 0);
        for (int i = 0; i < kEntries; ++i)
        {
            auto const at = ::SendMessageA(m_raw, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(EntryText(i).c_str()));
            ::SendMessageA(m_raw, CB_SETITEMDATA, static_cast<WPARAM>(at), i);
        }
    }

    template <class Work>
    Row Measure(char const* name, Work refill, std::optional<double> target)
    {
        Medians const medians = Interleave({[&] { Type(); }, nullptr, [&] { Check(m_ours, m_turn); }},
                                           {refill, nullptr, [&] { Check(m_raw, m_rawTurn); }});
        return {name, kMatches, medians.ours, medians.reference, target};
    }

    using Match = std::pair<std::string, LPARAM>;

    static std::vector<Match> MatchesOf(char letter)
    {
        std::vector<Match> matches;
        for (int i = letter - kFirstLetter; i < kEntries; i += kLetters)
        {
            matches.emplace_back(EntryText(i), i);
        }
        return matches;
    }

    /// What can't be left out: to compare each text's beginning.
    static std::vector<int> OnePass(DVectorSafe<CTavComboBox::ComboItem> const& items, char const* typed)
    {
        std::vector<int> found;
        std::size_t const length = std::strlen(typed);
        int index = 0;
        for (CTavComboBox::ComboItem const& item : items)
        {
            if (_strnicmp(item.m_strText, typed, length) == 0)
            {
                found.push_back(index);
            }
            ++index;
        }
        return found;
    }

    CWnd m_frame;
    FilteringCombo m_ours;
    HWND m_raw = nullptr;
    std::size_t m_turn = 0;
    std::size_t m_rawTurn = 0;
    std::array<std::vector<Match>, kTyped.size()> m_matches{MatchesOf(kTyped[0]), MatchesOf(kTyped[1])};
};

std::vector<Row> RunCombo()
{
    Combos combos;
    return {combos.MeasureKeystroke(), combos.MeasureQuietKeystroke(), combos.MeasureMatching(),
            combos.MeasureFirstKeystroke()};
}

Registration const kCombo("combo", RunCombo);

} // namespace
} // namespace bench
