// Start and stop of the platform: registers its run-time classes parents first, and removes them
// in reverse. A host calls odInitialize once before using anything else, odUninitialize at exit.
#pragma once

void odInitialize();
void odUninitialize();
bool odIsInitialized();
