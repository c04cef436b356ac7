// Serves the demo, with a temporary folder of its own, and opens it in a browser.
import { execFileSync, spawn } from 'node:child_process'
import { mkdtempSync, rmSync } from 'node:fs'
import { tmpdir } from 'node:os'

process.chdir(new URL('../..', import.meta.url).pathname)
execFileSync('script/setup/packages', ['chromium', 'fonts-liberation'])
execFileSync('npm', 'install --loglevel=error --prefer-offline --no-save --prefix build/browser playwright-core@1.56.1'.split(' '))
const { chromium } = await import('../../build/browser/node_modules/playwright-core/index.mjs')

export const TMPDIR = mkdtempSync(`${tmpdir()}/zorvel-demo-`)
const server = spawn('script/demo', ['--serve', '0'], { env: { ...process.env, TMPDIR } })
process.on('exit', () => { server.kill(); rmSync(TMPDIR, { recursive: true }) })
export const baseURL = await new Promise(found =>
  server.stderr.on('data', text => /\) started/.test(text) && found(/http:[^)]+/.exec(text)[0])))

export const browser = await chromium.launch({ executablePath: '/usr/bin/chromium', args: ['--disable-gpu', '--disable-quic'] })

export function check(name, got, wanted) {
  const good = JSON.stringify(got) === JSON.stringify(wanted)
  console.log(good ? `ok ${name}` : `not ok ${name}: ${JSON.stringify(got)}`)
  process.exitCode ||= good ? 0 : 1
}

export const close = () => browser.close().then(() => process.exit())
