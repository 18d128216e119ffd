#pragma once

// Makes assistive tools hear of the panels' controls by their roles: a panel, its header, its buttons, which
// they can press. Once is enough; more often does no harm.
void InstallPanelAccessibility();
