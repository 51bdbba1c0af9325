// Closes a dialog whose work is done.
#pragma once

class QDialog;

/**
 * Accepts the dialog, and lets its parent ask for the keyboard if the program had it. The window
 * with the progress has closed just before: of two windows that close in one moment, some window
 * managers give the keyboard to the second one, which is gone, and then to none.
 */
void acceptAfterWork(QDialog &dialog);
