#include "workbench/Formats.h"

#include "tavkit/filedlg/FileDlg.h"

namespace workbench
{
Formats::Formats() : m_workspace("TKW", "Workspaces", "*.tkw"), m_project("TKP", "Projects", "*.tkp")
{
    Wksp::Open(formats::ProductSchema());
    FileDlg::pFrmt_workspace = &m_workspace;
    FileDlg::pFrmt_prjct = &m_project;
}

Formats::~Formats()
{
    FileDlg::pFrmt_workspace = nullptr;
    FileDlg::pFrmt_prjct = nullptr;
    Wksp::Close();
}
} // namespace workbench
