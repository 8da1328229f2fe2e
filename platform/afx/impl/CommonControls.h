// CommonControls.h - makes the window classes of the common controls known
#pragma once

/// Registers the classes of the common controls, once for the process. Called at the start of the framework, since
/// dialog templates name the classes, and by whoever creates a control without that start.
void AfxInitCommonControls();
