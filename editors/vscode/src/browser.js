"use strict";

// A browser by itself has no command to run: without this file it would refuse the colours and snippets as well.
module.exports = { activate: () => {} };
