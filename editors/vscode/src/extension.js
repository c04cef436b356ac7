"use strict";

const path = require("node:path");
const vscode = require("vscode");
const { diagnosticOf } = require("./diagnostics.js");
const { lint } = require("./lint.js");

const SECTION = "zorvel.lint";

const settingsOf = (document) => {
  const section = vscode.workspace.getConfiguration(SECTION, document);
  return { enabled: section.get("enabled"), command: section.get("command"), options: section.get("options") };
};

const isTemplate = ({ languageId, uri }) => languageId === "zorvel" && uri.scheme === "file";

const isChecked = (document) => isTemplate(document) && vscode.workspace.isTrusted && settingsOf(document).enabled;

const folderOf = ({ uri }) => vscode.workspace.getWorkspaceFolder(uri)?.uri.fsPath ?? path.dirname(uri.fsPath);

const diagnosticsOf = async (document, signal) => {
  const folder = folderOf(document);
  const file = path.relative(folder, document.uri.fsPath);
  const findings = await lint(file, folder, settingsOf(document), signal);
  return findings.map((finding) => diagnosticOf(finding, file, document));
};

const openSettings = () => vscode.commands.executeCommand("workbench.action.openSettings", SECTION);

/** Shows what the linter finds in open templates. */
class Checker {
  #diagnostics = vscode.languages.createDiagnosticCollection("zorvel");

  /** @type {Map<string, AbortController>} the last run for each open document */
  #runs = new Map();

  /** @type {Set<string>} why templates could not be checked */
  #told = new Set();

  async check(document) {
    if (!isChecked(document)) {
      return this.clear(document);
    }
    const signal = this.#startRun(document);
    try {
      const diagnostics = await diagnosticsOf(document, signal);
      if (!signal.aborted) {
        this.#diagnostics.set(document.uri, diagnostics);
      }
    } catch ({ message }) {
      if (!signal.aborted) {
        this.#fail(document, message);
      }
    }
  }

  checkAll() {
    this.#told.clear();
    vscode.workspace.textDocuments.forEach((document) => this.check(document));
  }

  clear({ uri }) {
    this.#runs.get(String(uri))?.abort();
    this.#runs.delete(String(uri));
    this.#diagnostics.delete(uri);
  }

  dispose() {
    this.#runs.forEach((run) => run.abort());
    this.#diagnostics.dispose();
  }

  #startRun({ uri }) {
    const run = new AbortController();
    this.#runs.get(String(uri))?.abort();
    this.#runs.set(String(uri), run);
    return run.signal;
  }

  #fail(document, message) {
    this.#diagnostics.delete(document.uri);
    if (!this.#told.has(message)) {
      this.#told.add(message);
      vscode.window.showWarningMessage(message, "Settings").then((button) => button && openSettings());
    }
  }
}

const activate = ({ subscriptions }) => {
  const checker = new Checker();
  subscriptions.push(
    checker,
    vscode.workspace.onDidOpenTextDocument((document) => checker.check(document)),
    vscode.workspace.onDidSaveTextDocument((document) => checker.check(document)),
    vscode.workspace.onDidCloseTextDocument((document) => checker.clear(document)),
    vscode.workspace.onDidGrantWorkspaceTrust(() => checker.checkAll()),
    vscode.workspace.onDidChangeConfiguration((change) => change.affectsConfiguration(SECTION) && checker.checkAll()),
  );
  checker.checkAll();
};

module.exports = { activate };
