<?php

// The pages that are asked for: group => name => what makes the page from the request's token. Templates that are
// files stand in the include path.
declare(strict_types=1);

require_once __DIR__ . '/values.php';

const SHARED = [['name' => 'Ann & Bob', 'tags' => ['red', '<blue>']], ['name' => 'Cy', 'tags' => []]];

$text = fn(string $template, array $more = []): Closure
    => fn(string $token): ?string => zorvel($template, ['token' => $token] + $more, true);
$file = fn(string $name, array $more = []): Closure
    => fn(string $token): ?string => zorvel($name, ['token' => $token] + $more);
$rows = fn(int $count): Closure => fn(string $token): ?string => zorvel('rows.tpl', rows($count, $token));
$value = fn(Closure $act): Closure => fn(string $token): ?string
    => zorvel('{token} {dynamic rows}{*}{/dynamic}', ['token' => $token, 'rows' => ['<', new Value($act, $token), '>']], true);

return [
    'pages' => [
        'one value' => $text('{token}'),
        'filters' => $text('{addslashes token}{htmlentities e}{rawurlencode e}{dynamic r}{htmlspecialchars *}{token}{/dynamic}', [
            'e' => 'é<"\'>', 'r' => ['é', '<', 5, 2.5, null, true],
        ]),
        '10 rows' => $rows(10),
        '100 rows' => $rows(100),
        'rows from memory shared by all threads' => $text(
            '{dynamic r,rows}{token}:{r::[*]}:{htmlspecialchars r::*::name}{dynamic r::*::tags} {htmlspecialchars *}{/dynamic}{/dynamic}',
            ['rows' => SHARED],
        ),
        'rows with references in them' => fn(string $token): ?string => zorvel('rows.tpl', referenced(rows(20, $token))),
        'sections' => $text('{optional on}{optional n 3}{!optional off}{token}{/optional}{/optional}{/optional}{optional n 4}no{/optional}', [
            'on' => true, 'off' => '0', 'n' => 3,
        ]),
        '50 sections deep' => $text(str_repeat('{optional token}', 50) . '{token}' . str_repeat('{/optional}', 50)),
        '20 includes' => $file('includes.tpl', ['rows' => range(1, 20), 'named' => 'part.tpl']),
        '30 includes deep' => $file('chain-30.tpl'),
        'a template from a user\'s stream' => fn(string $token): ?string => zorvel(Stream::of("{token}" . str_repeat('é', 9000)), ['token' => $token]),
        'a template from data:' => fn(string $token): ?string => zorvel("data:,$token {token}", ['token' => $token]),
    ],
    'faults' => [
        'no such file' => fn(string $token): ?string => zorvel("$token.tpl", []),
        'no array' => fn(string $token): string => caught(fn() => zorvel($token, $token)), // @phpstan-ignore argument.type
        'a fault in an included file' => $file('broken.tpl'),
        'a circle of files' => $file('circle.tpl'),
        ...array_map($text, [
            'optional left open' => '{token}{optional a}',
            'optional closed twice' => '{token}{/optional}',
            'dynamic left open' => '{token}{dynamic token}',
            'dynamic closed as rdynamic' => '{token}{dynamic a}{/rdynamic}',
            'rdynamic closed as dynamic' => '{token}{rdynamic a}{/dynamic}',
            'sections that cross' => '{token}{optional a}{dynamic b}{/optional}{/dynamic}',
            'too many colons' => '{token}{a:::b}',
            'two asterisks' => '{token}{a::*::b::*}',
            'only asterisks' => '{token}{*::*}',
            'too many names' => '{token}{a::b::*::c}',
            'a path of too many names' => '{token}{a::b::c::*::d}',
            'a key with parts' => '{token}{[*]::a}',
            'include without a name' => '{token}{include}',
            'include by a loop' => '{token}{dynamic rows}{include rows::*}{/dynamic}',
            'a loop over nothing' => '{token}{dynamic}{/dynamic}',
            'a loop over a key' => '{token}{dynamic rows::[*]}{/dynamic}',
            'a quote in a name' => "{token}{it's}",
            'a quote left open' => "{token}{name 'nobody}",
        ]),
        'a loop name used twice' => $text('{token}{dynamic r,rows}{dynamic r,rows}{/dynamic}{/dynamic}', ['rows' => [1]]),
    ],
    'user code' => [
        'a value that renders' => $value(fn(string $token): string => (string) zorvel('rows.tpl', rows(3, $token))),
        'a value that fails to render' => $value(fn(string $token): string => zorvel("$token{/dynamic}", [], true) ?? 'null'),
        'a value that throws' => fn(string $token): string
            => caught(fn() => $value(fn(string $token) => throw new LogicException($token))($token)),
        'a value that throws, uncaught' => $value(fn(string $token) => throw new LogicException($token)),
        'a value that exits' => $value(fn(string $token) => exit("bye $token")),
        'a value of two gigabytes' => $value(fn(): string => str_repeat('x', 2 ** 31)),
        'a value that waits in a fiber' => fn(string $token): ?string
            => inFiber(fn() => $value(fn(string $token): string => resumedWith() . $token)($token)),
        'a handler that throws' => fn(string $token): string => caught(fn() => throwing(fn() => zorvel("$token{/optional}", [], true))),
        'a value that has no text' => fn(string $token): string
            => caught(fn() => zorvel('{token}{a}', ['token' => $token, 'a' => new stdClass()], true)),
    ],
    'heavy' => [
        'too deep' => $file('deep.tpl'),
        '1,000 rows' => $rows(1000),
        '200 KB of text' => $file('long.tpl'),
    ],
    'slow' => [
        'a value that takes too long' => function (string $token) use ($value): ?string {
            set_time_limit(1);
            return $value(fn() => spin())($token);
        },
    ],
    'moving' => [
        'a template that is replaced' => $file('replaced.tpl'),
        'a template that comes and goes' => $file('deleted.tpl'),
        'an include that comes and goes' => $text('<{token}{include deleted.tpl}>'),
        'a template that is cut' => $file('cut.tpl'),
    ],
    'settings' => [
        'charset' => $text('{htmlentities word} {htmlspecialchars word} {token}', ['word' => "\xE9 é"]),
        'include path' => $file('which.tpl'),
        'memory' => $value(fn(): string => (string) strlen(str_repeat('x', 8 << 20))),
        'a file outside' => $text('{token}{include ' . dirname(__DIR__) . '/other/which.tpl}'),
    ],
    'limits' => [
        'a page without an end' => function (string $token) use ($text): ?string {
            set_time_limit(1);
            return $text(loops(4, ''), ['rows' => range(1, 420)])($token);
        },
        'a page of gigabytes' => function (string $token) use ($text): ?string {
            ini_set('memory_limit', '64M');
            return $text(loops(3, str_repeat('.', 30)), ['rows' => range(1, 420)])($token);
        },
        'a value that escaping makes six times as long' => function (string $token) use ($text): ?string {
            ini_set('memory_limit', '64M');
            return $text('{token}{dynamic r}{htmlspecialchars *}{/dynamic}', ['r' => [str_repeat('"', 40 << 20)]])($token);
        },
    ],
];
