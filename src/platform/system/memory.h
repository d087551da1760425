#pragma once

// For a run that ends soon: freed memory stays with the program instead of going back to the system
// piece by piece. Tools that make megabytes anew out of megabytes spend most of their time on the
// page faults of fresh memory otherwise. Call it before anything large is allocated.
void KeepFreedMemory();
