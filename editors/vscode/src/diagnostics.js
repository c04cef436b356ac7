"use strict";

const vscode = require("vscode");

const TAG_OR_REST_OF_LINE = /\{(?:[^{}]|\{[{}]?)*\}|.*/y;

const severities = {
  error: vscode.DiagnosticSeverity.Error,
  warning: vscode.DiagnosticSeverity.Warning,
};

/** A finding's column counts characters, the editor's UTF-16 units. */
const unitsBefore = (text, column) => [...text].slice(0, column - 1).join("").length;

const rangeOf = ({ line, column }, document) => {
  const { range: { start: { line: index } }, text } = document.lineAt(Math.min(line, document.lineCount) - 1);
  const start = unitsBefore(text, column);
  TAG_OR_REST_OF_LINE.lastIndex = start;
  const [marked] = TAG_OR_REST_OF_LINE.exec(text);
  return new vscode.Range(index, start, index, start + marked.length);
};

/** What is wrong in an included file stands on the first line: the document may be the only one in which it shows. */
const diagnosticOf = (finding, file, document) => {
  const { file: place, line, level, rule, message } = finding;
  const diagnostic = place === file
    ? new vscode.Diagnostic(rangeOf(finding, document), message, severities[level])
    : new vscode.Diagnostic(document.lineAt(0).range, `${place}:${line}: ${message}`, severities[level]);
  return Object.assign(diagnostic, { source: "zorvel", code: rule });
};

module.exports = { diagnosticOf };
