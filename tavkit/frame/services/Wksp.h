// Wksp.h - the workspace, its data schema and the custom imports that the schema declares
#pragma once

#include <memory>
#include <vector>

#include "tavkit/frame/services/DString.h"
#include "tavkit/frame/services/DVector.h"

/// How one layer of a custom import becomes a picture.
class TAVHOST_API ImportImgLayerData
{
public:
    ImportImgLayerData();
    ImportImgLayerData(ImportImgLayerData const& other);
    ImportImgLayerData& operator=(ImportImgLayerData const& other);
    ~ImportImgLayerData();

    // The fields are part of the interface, in this order.
    DString m_strLayer;  ///< name of the layer
    DString m_strFile;   ///< file name pattern
    DString m_strDrvrId; ///< identifier of the raster driver
};

/// Import of a file layout that the user's data schema describes.
class TAVHOST_API CustImport
{
public:
    /// What the schema says of the import. The texts are part of the interface, in this order.
    struct Dfntn
    {
        DString m_strName;                          ///< what the file dialogs show
        DString m_strDscr;                          ///< description
        DString m_strFrmtId;                        ///< identifier of the format
        DVectorSafe<DString> m_vecParam;            ///< the file pattern, and the texts for its places
        DVectorSafe<ImportImgLayerData> m_vecLayer; ///< picture layers
    };

    /// @param dfntn  borrowed; must outlive the import.
    explicit CustImport(Dfntn const* dfntn);
    CustImport(CustImport const&) = delete;
    CustImport& operator=(CustImport const&) = delete;
    ~CustImport();

    /// The file name pattern that parameters make: the first one, in which "{1}" stands for the second parameter, "{2}"
    /// for the third and so on. A place without a parameter stands for any text, "*".
    /// @param folder  put in front of the pattern; "" for none.
    DString GetFilePttr(DVectorSafe<DString> const& params, char const* folder);

    Dfntn const* m_pDfntn; ///< the definition, borrowed; the first field
};

/// The data schema of a workspace.
class TAVHOST_API DataSchm
{
public:
    DataSchm();
    DataSchm(DataSchm const&) = delete;
    DataSchm& operator=(DataSchm const&) = delete;
    ~DataSchm();

    /// Declares a further import; the definition is copied.
    void AddCustImport(CustImport::Dfntn const& dfntn);
    [[nodiscard]] int GetNumCustImport() const;
    /// The import at @p index, owned by the schema; null outside.
    CustImport* GetCustImport(int index);

private:
    std::vector<std::unique_ptr<CustImport::Dfntn>> m_vecDfntn; ///< of the imports, which borrow them
    std::vector<std::unique_ptr<CustImport>> m_vecImport;
};

/// The workspace that is open.
class TAVHOST_API Wksp
{
public:
    /// The workspace; null when none is open.
    static Wksp* Instance();
    /// Opens a workspace in place of the one that is open.
    /// @param schm  null for a workspace without a schema.
    static void Open(std::unique_ptr<DataSchm> schm);
    /// Closes the workspace that is open, if there is one.
    static void Close();

    ~Wksp();
    Wksp(Wksp const&) = delete;
    Wksp& operator=(Wksp const&) = delete;

    /// The schema, owned by the workspace; null when it has none.
    [[nodiscard]] DataSchm* GetDataSchm() const;

private:
    explicit Wksp(std::unique_ptr<DataSchm> schm);

    static std::unique_ptr<Wksp> m_pOpen;

    std::unique_ptr<DataSchm> m_pSchm;
};
