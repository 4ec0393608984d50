#pragma once

// Lets a screen reader know what Qt has no word for: that a page is a picture, and which widgets are windows.
// Called once, before the first window.
void installSpokenRoles();
