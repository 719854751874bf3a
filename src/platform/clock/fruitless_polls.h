// Recognises a loop that does nothing but poll for messages, so that it can be paced
// like one that sleeps. Inside the platform only: the message queue counts its
// fruitless polls here, and what a loop does besides is noted by the services it calls.
#pragma once

// A poll has found no message. Sleeps as long as Sleep(1) does once a whole run of polls has found none,
// with nothing done in between.
void pauseAfterFruitlessPolls();

// A message was found, a control was read or a window was asked about: the loop works, and the next run
// starts anew. A loop that owes ticks is recognised by this, since each tick reads the controls.
void noteWorkBetweenPolls();
