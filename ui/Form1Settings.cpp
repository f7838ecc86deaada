#include "Form1.h"

void Form1::ReadSettingsFile() {}
void Form1::WriteSettingsFile() {}
void Form1::ShowOptions() {}
