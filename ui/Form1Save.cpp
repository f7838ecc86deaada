#include "Form1.h"

void Form1::SaveDnaFile(int) {}
