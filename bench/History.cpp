// History.cpp - [history] what a file dialog costs to learn and to remember a folder, against the bare store
#include "bench/Bench.h"
#include "tavkit/filedlg/DfltFldrs.h"
#include "tavkit/frame/services/DCnfg.h"

#include <string>

namespace bench
{
namespace
{

constexpr double kTarget = 1.5;
constexpr int kTimes = 200;
constexpr char kKey[] = "BenchFolders"; ///< a category of the measurement's own
constexpr int kFolders = 7;             ///< as many as stay in a list with its defaults

/// A history as it is after some use, and nothing of it at the end.
class StoredHistory
{
public:
    StoredHistory()
    {
        for (int i = 0; i < kFolders; ++i)
        {
            m_list += (i == 0 ? "" : ";") + ("C:\\Users\\somebody\\Pictures\\" + std::to_string(i));
        }
        Write();
        DfltFldrs::Instance()->SetDfltFldrs(kKey, "My Documents;Desktop");
    }
    ~StoredHistory()
    {
        DUserCnfg(DfltFldrs::kHistorySection, true, false).WriteString(kKey, "");
        DfltFldrs::DeleteInstance();
    }
    StoredHistory(StoredHistory const&) = delete;
    StoredHistory& operator=(StoredHistory const&) = delete;

    void Write() const { DUserCnfg(DfltFldrs::kHistorySection, true, false).WriteString(kKey, m_list.c_str()); }
    [[nodiscard]] bool Read() const
    {
        return DUserCnfg(DfltFldrs::kHistorySection, true, false).ReadString(kKey, "") == m_list.c_str();
    }

private:
    std::string m_list;
};

template <class Work>
void Repeat(Work work)
{
    for (int i = 0; i < kTimes; ++i)
    {
        work();
    }
}

/// Each operation against the uses of the store that it can't do without.
std::vector<Row> RunHistory()
{
    const StoredHistory stored;
    DVectorSafe<DString> folders;
    bool same = true;
    const auto checkStore = [&] { Require(same, "the store gives other folders"); };
    const auto read = [&] { same = stored.Read() && same; };

    const Medians asked =
        Interleave({[&] { Repeat([&] { DfltFldrs::Instance()->GetDirHist(kKey, folders, true, true); }); }, nullptr,
                    [&] { Require(folders.GetCount() == kFolders + 2, "the list has other folders"); }},
                   {[&] { Repeat(read); }, nullptr, checkStore});

    const DString first = folders[0];
    const Medians saved =
        Interleave({[&] { Repeat([&] { DfltFldrs::Instance()->SaveDirHist(kKey, first); }); }, nullptr,
                    [&] { Require(stored.Read(), "the folder that was first is it no more"); }},
                   {[&] {
                        Repeat([&] {
                            read();
                            stored.Write();
                        });
                    },
                    nullptr, checkStore});
    return {{"history.get", kTimes, asked.ours, asked.reference, kTarget},
            {"history.save", kTimes, saved.ours, saved.reference, kTarget}};
}

const Registration kHistory("history", RunHistory);

} // namespace
} // namespace bench
