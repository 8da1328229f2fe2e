// Wksp.cpp
#include "tavkit/frame/services/Wksp.h"

#include <charconv>
#include <string>
#include <string_view>

ImportImgLayerData::ImportImgLayerData() = default;
ImportImgLayerData::ImportImgLayerData(ImportImgLayerData const& other) = default;
ImportImgLayerData& ImportImgLayerData::operator=(ImportImgLayerData const& other) = default;
ImportImgLayerData::~ImportImgLayerData() = default;

CustImport::CustImport(Dfntn const* dfntn) : m_pDfntn(dfntn) {}
CustImport::~CustImport() = default;

DString CustImport::GetFilePttr(DVectorSafe<DString> const& params, char const* folder)
{
    std::string pattern(folder ? folder : "");
    const std::string_view text = params[0].c_str();
    for (std::size_t at = 0; at < text.size();)
    {
        const std::size_t open = std::min(text.find('{', at), text.size());
        pattern += text.substr(at, open - at);
        const std::size_t close = text.find('}', open);
        if (close == std::string_view::npos)
        {
            pattern += text.substr(open);
            break;
        }
        int number = 0;
        const std::string_view digits = text.substr(open + 1, close - open - 1);
        const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
        const bool given = error == std::errc() && stop == digits.data() + digits.size() && number > 0;
        const DString param = given ? params[number] : DString();
        pattern += param.IsEmpty() ? "*" : param.c_str();
        at = close + 1;
    }
    return pattern.c_str();
}

DataSchm::DataSchm() = default;
DataSchm::~DataSchm() = default;

void DataSchm::AddCustImport(CustImport::Dfntn const& dfntn)
{
    auto owned = std::make_unique<CustImport::Dfntn>(dfntn);
    m_vecImport.push_back(std::make_unique<CustImport>(owned.get()));
    m_vecDfntn.push_back(std::move(owned));
}

int DataSchm::GetNumCustImport() const { return static_cast<int>(m_vecImport.size()); }

CustImport* DataSchm::GetCustImport(int index)
{
    return index >= 0 && index < GetNumCustImport() ? m_vecImport[static_cast<std::size_t>(index)].get() : nullptr;
}

std::unique_ptr<Wksp> Wksp::m_pOpen;

Wksp::Wksp(std::unique_ptr<DataSchm> schm) : m_pSchm(std::move(schm)) {}
Wksp::~Wksp() = default;

Wksp* Wksp::Instance() { return m_pOpen.get(); }

void Wksp::Open(std::unique_ptr<DataSchm> schm) { m_pOpen.reset(new Wksp(std::move(schm))); }

void Wksp::Close() { m_pOpen.reset(); }

DataSchm* Wksp::GetDataSchm() const { return m_pSchm.get(); }
