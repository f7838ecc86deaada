#include "Form1.h"

#include "FindTemplateWindow.h"
#include "WindowUtil.h"

void Form1::ShowFindTemplate() {
    // One window at a time; a closed one waits for its deletion and a fresh one takes its place.
    if (!finder_ || !finder_->isVisible())
        finder_ = new FindTemplateWindow(model_, hub_);
    ShowOrFocusWindow(finder_);
}
