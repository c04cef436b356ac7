// See script/server.
import { parseArgs } from 'node:util'
import { Apache } from './apache.mjs'
import { prepare } from './site.mjs'

const { values: options, positionals: [seconds = '20'] } = parseArgs({
  allowPositionals: true,
  options: { measure: { type: 'boolean' }, serve: { type: 'boolean' } },
})
for (const signal of ['SIGINT', 'SIGTERM']) process.on(signal, () => process.exit(1)) // and with it what was started

async function serve() {
  const { port } = await Apache.start()
  console.log(`The shop:       http://shop.localhost:${port}/\nThe test pages: http://plain.localhost:${port}/\nCtrl-C stops it.`)
}

prepare()
if (options.serve) {
  await serve()
} else if (options.measure) {
  const { measure } = await import('./measure.mjs')
  await measure()
} else {
  const { run } = await import('./load.mjs')
  await run(Number(seconds))
}
