#pragma once

// Makes every SplitterBar known to assistive tools as a splitter with a value: its position in percent.
// Calling it again changes nothing.
void InstallSplitterBarAccess();
