// DIOPlugin.h - plug-ins that bring file formats of their own
#pragma once

#include <vector>

#include "tavkit/frame/services/DFileFrmt.h"
#include "tavkit/frame/services/DList.h"
#include "tavkit/frame/services/DString.h"

/// A question about a value, which a caller hands through the library to the host.
template <class T>
class ICheck
{
public:
    virtual ~ICheck() = default;
    /// True if @p value is acceptable.
    virtual bool Check(T const& value) = 0;
};

/// A plug-in for data input and output.
class TAVHOST_API DIOPlugin
{
public:
    DIOPlugin();
    DIOPlugin(DIOPlugin const&) = delete;
    DIOPlugin& operator=(DIOPlugin const&) = delete;
    virtual ~DIOPlugin();

    /// The plug-in's name, by which callers ask for it.
    virtual char const* GetName() const = 0;

    /// Appends new records of the plug-in's formats to @p list; they are the caller's to delete.
    /// @param mode      0 to open, 1 to save.
    /// @param dataType  bits of the data types that are wanted; 0 for all.
    /// @param check     asked about each format's identifier; null takes all.
    void BuildFrmtList(DList<DFileFrmt*>* list, int mode, unsigned int dataType, ICheck<DString>* check);

protected:
    /// Appends the formats for BuildFrmtList, whose arguments are handed on; @p list is never null.
    virtual void OnBuildFrmtList(DList<DFileFrmt*>& list, int mode, unsigned int dataType, ICheck<DString>* check) = 0;
};

/// Base of the plug-in managers.
class TAVHOST_API DAddinMngr
{
public:
    DAddinMngr();
    DAddinMngr(DAddinMngr const&) = delete;
    DAddinMngr& operator=(DAddinMngr const&) = delete;
    virtual ~DAddinMngr();
};

/// Manager of the data input and output plug-ins.
class TAVHOST_API DIOPluginMngr : public DAddinMngr
{
public:
    DIOPluginMngr();
    ~DIOPluginMngr() override;

    /// Appends the formats of all plug-ins, as DIOPlugin::BuildFrmtList does for one.
    virtual void BuildFrmtList(DList<DFileFrmt*>* list, int mode, unsigned int dataType, ICheck<DString>* check);

    /// Adds a plug-in, borrowed; it must be unregistered before it dies.
    void Register(DIOPlugin* plugin);
    void Unregister(DIOPlugin* plugin);

    /// Walk over the plug-ins of a manager, in the order of registration.
    class TAVHOST_API DriverItr
    {
    public:
        /// Stands on the first plug-in. A null manager, and one that isn't a DIOPluginMngr, has none.
        explicit DriverItr(DAddinMngr* mngr);
        DriverItr(DriverItr const&) = delete;
        DriverItr& operator=(DriverItr const&) = delete;
        virtual ~DriverItr();
        /// Steps to the next plug-in.
        void Next();

        DIOPlugin* m_pCrnt = nullptr; ///< the plug-in that the walk stands on, null at the end; the first field

    private:
        DIOPluginMngr* m_pMngr = nullptr;
        int m_nIndex = 0;
    };

private:
    std::vector<DIOPlugin*> m_vecPlugin; ///< borrowed
};
