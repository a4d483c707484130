// Shared by every JScript suite: tests/com/run puts these checks in front of each suite before
// running it, as it does for the VBScript suites.
var passed = 0, failed = 0;
function check(name, actual, expected) {
  if (actual === expected) {
    passed++;
  } else {
    failed++;
    WScript.Echo("FAIL " + name + ": got " + actual + ", expected " + expected);
  }
}
// Prints the summary line that tests/com/run reads and sets the exit code.
function finish() {
  WScript.Echo(passed + " passed, " + failed + " failed");
  WScript.Quit(failed > 0 ? 1 : 0);
}
