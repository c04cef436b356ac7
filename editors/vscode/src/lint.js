"use strict";

const { execFile } = require("node:child_process");
const { existsSync } = require("node:fs");
const path = require("node:path");

const MINUTE = 60_000;
const MEGABYTE = 2 ** 20;
const IS_ABSENT = ["ENOENT", "EACCES"];

const commandIn = (folder) => {
  const installed = path.join("vendor", "bin", "zorvel");
  return [existsSync(path.join(folder, installed)) ? installed : "zorvel"];
};

/** The folders between the workspace's and the one that the file is in: an include may be meant from any of them. */
const foldersTo = (file) => {
  const names = path.dirname(file).split(path.sep);
  return names.slice(1).map((_, index) => path.join(...names.slice(0, index + 1)));
};

const wordsFor = (file, folder, { command, options }) => [
  ...(command.length > 0 ? command : commandIn(folder)),
  "lint", "--format=json", ...options,
  ...foldersTo(file).map((name) => `--include-path=${name}`),
  "--", file,
];

const reasonFor = (program, error, errors) => IS_ABSENT.includes(error?.code)
  ? `There is no command ${program} to check templates with: run composer require --dev zorvel/tools, or name it in the setting zorvel.lint.command.`
  : `${program} could not check a template: ${errors.trim() || error?.message || "it printed no findings"}`;

const findingsIn = (output) => {
  try {
    return JSON.parse(output);
  } catch {
    return null;
  }
};

/**
 * Runs `zorvel lint` on a file, without a shell.
 *
 * @param {string} file relative to the folder, as it then is in the findings: the command may see the folder elsewhere, in a container
 * @param {string} folder the command's working directory
 * @param {{command: string[], options: string[]}} settings
 * @param {AbortSignal} signal
 * @returns {Promise<object[]>} rejected with a sentence for the user
 */
const lint = (file, folder, settings, signal) => new Promise((resolve, reject) => {
  const [program, ...parameters] = wordsFor(file, folder, settings);
  const bounds = { cwd: folder, signal, timeout: MINUTE, maxBuffer: 64 * MEGABYTE };
  execFile(program, parameters, bounds, (error, output, errors) => {
    const findings = findingsIn(output);
    findings ? resolve(findings) : reject(new Error(reasonFor(program, error, errors)));
  }).stdin.end();
});

module.exports = { lint };
