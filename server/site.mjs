// What is served: hosts with their folders and settings, and the files that the server needs, all under build/server.
import { execFileSync } from 'node:child_process'
import { chmodSync, mkdirSync, rmSync, writeFileSync } from 'node:fs'
import { resolve } from 'node:path'

export const root = resolve('build/server')
const here = resolve('server')
export const templates = `${root}/templates`
const extension = resolve('modules/php_zorvel.so')

const pages = (settings = {}) => ({ folder: `${here}/pages`, settings })
export const pageHosts = {
  plain: pages(),
  latin: pages({ default_charset: 'ISO-8859-1' }),
  other: pages({ include_path: `${here}/other:${templates}` }),
  small: pages({ memory_limit: '6M' }),
  fenced: pages({ open_basedir: `${here}/pages:${here}/templates:${templates}` }),
}
export const hosts = {
  ...pageHosts,
  shop: { folder: resolve('examples/shop/public'), settings: {} },
  measure: { folder: `${here}/measure`, settings: {} },
}

const phpConfig = execFileSync('script/setup/php', ['zts'], { encoding: 'utf8' }).trim()
export const php = execFileSync(phpConfig, ['--php-binary'], { encoding: 'utf8' }).trim()

const user = process.getuid() === 0 ? 'www-data' : undefined
const modules = {
  mpm_event: '/usr/lib/apache2/modules/mod_mpm_event.so',
  authz_core: '/usr/lib/apache2/modules/mod_authz_core.so',
  mime: '/usr/lib/apache2/modules/mod_mime.so',
  dir: '/usr/lib/apache2/modules/mod_dir.so',
  php: `${root}/mod_php.so`,
}

function fill(template, data) {
  const program = 'echo zorvel($argv[1], json_decode($argv[2], true)) ?? exit(1);'
  return execFileSync(php, ['-n', '-d', `extension=${extension}`, '-r', program, `${here}/${template}`, JSON.stringify(data)])
}

/** Writes Apache's configuration; INI is a folder, 'with' the extension or 'without'. */
export function configure(port, ini) {
  writeFileSync(`${root}/httpd.conf`, fill('httpd.conf.tpl', { root, ini, port, user, modules, hosts }))
  setStack(1 << 20)
}

/** The stack of the threads that Apache starts from now on, which it reads at each restart. */
export function setStack(bytes) {
  writeFileSync(`${root}/stack.conf`, `ThreadStackSize ${bytes}\n`)
}

/** Folders, PHP's settings, and the templates that are too large or too many to be kept. */
export function prepare() {
  for (const folder of ['templates', 'tmp', 'tmp-command-line', 'with', 'without', 'wrong']) {
    rmSync(`${root}/${folder}`, { recursive: true, force: true })
    mkdirSync(`${root}/${folder}`, { recursive: true })
  }
  chmodSync(`${root}/tmp`, 0o777)
  writeFileSync(`${root}/with/php.ini`, fill('php.ini.tpl', { root, here, extension }))
  writeFileSync(`${root}/without/php.ini`, fill('php.ini.tpl', { root, here }))
  writeFileSync(`${templates}/long.tpl`, 'All work and no play, says {token}.\n'.repeat(20) + 'Plain text of é and {{braces}}. '.repeat(6200))
  writeFileSync(`${templates}/deep.tpl`, '{!optional a}'.repeat(40_000))
  for (let depth = 1; depth <= 30; ++depth) {
    writeFileSync(`${templates}/chain-${depth}.tpl`, `<{token}{include chain-${depth - 1}.tpl}>`)
  }
  readable()
}

function readable() {
  if (!user) return
  try {
    execFileSync('setpriv', [`--reuid=${user}`, '--clear-groups', 'test', '-r', `${templates}/long.tpl`])
  } catch {
    throw new Error(`Apache's user ${user} cannot read ${root}: move the checkout out of a private folder, or do not run this as root.`)
  }
}
