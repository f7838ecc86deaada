#include "Form1.h"

void Form1::ClearExperiment() {}
void Form1::SimulateExpSession() {}
void Form1::ExperimentOnSample() {}
