// MainFrameLayers.cpp - the main window and the window of its layers
#include "workbench/MainFrame.h"
#include "workbench/resource.h"

namespace workbench
{
void MainFrame::OnViewLayers()
{
    if (m_layers.IsShown())
    {
        m_layers.Hide();
        return;
    }
    if (m_layers.m_hWnd == nullptr && !m_layers.Create(this))
    {
        return;
    }
    UpdateLayers();
    m_layers.Show();
}

void MainFrame::OnUpdateLayers(CCmdUI* command) { command->SetCheck(m_layers.IsShown() ? 1 : 0); }

void MainFrame::UpdateLayers()
{
    if (m_layers.m_hWnd != nullptr)
    {
        m_layers.Update(LayersOf(m_project.Tree().Items()));
    }
}

/// Shows what the layer stands for, and chooses it in the project.
void MainFrame::OnLayerChosen()
{
    const Layer* const layer = m_layers.List().Chosen();
    if (layer != nullptr && m_project.Tree().ChooseMoniker(layer->moniker))
    {
        OnProjectChosen();
    }
}
} // namespace workbench
