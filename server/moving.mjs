// Templates that change while they are read: one replaced, one removed and put back, one cut and written anew in place.
import { renameSync, rmSync, writeFileSync } from 'node:fs'
import { templates } from './site.mjs'

const replaced = ['short {token}', `long {token} ${'and so on '.repeat(4000)}`]
const cut = '{token} '.repeat(10) + 'The quick brown fox jumps over the lazy dog. '.repeat(2000)

function replace(name, text) {
  writeFileSync(`${templates}/${name}.new`, text)
  renameSync(`${templates}/${name}.new`, `${templates}/${name}`)
}

/** Puts every template into its first state, 0, or its second, 1. */
export function put(state) {
  replace('replaced.tpl', replaced[state])
  replace('deleted.tpl', 'here for {token}')
  if (state === 1) rmSync(`${templates}/deleted.tpl`)
  writeFileSync(`${templates}/cut.tpl`, state === 0 ? cut : '')
}

/** Changes them all until the function that it returns is called. */
export function keepMoving() {
  let state = 0
  const timer = setInterval(() => put(state ^= 1), 3)
  return () => clearInterval(timer)
}
