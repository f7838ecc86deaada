#include "Form1.h"

void Form1::ShowAddDna() {}
