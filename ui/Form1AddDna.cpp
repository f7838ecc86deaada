#include "Form1.h"

#include "Form2.h"
#include "WindowUtil.h"

void Form1::ShowAddDna() {
    // A closed window waits for its deletion until the event loop runs again; the next
    // opening already gets a fresh one.
    if (!form2_ || !form2_->isVisible())
        form2_ = new Form2(model_, hub_);
    ShowOrFocusWindow(form2_);
}
