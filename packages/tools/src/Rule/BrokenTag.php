<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\Path;
use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagKind;
use Zorvel\Tools\Template\Probe;
use Zorvel\Tools\Template\Template;

/** A tag that the extension refuses: each is handed to it alone, with the names of the loops round it. */
final readonly class BrokenTag extends TagRule
{
    private const array REMEDIES = [
        'too many :' => 'write a key on both sides of each "::"',
        'too many *' => 'a path has one * or [*]; reach an inner list with a loop inside the loop',
        'too many namespaces' => 'nothing but the name of a loop stands before *; give the loop a name',
        '[*] must be last' => 'a key has no parts; the element is *',
        'Include block bad parameter: no parameter found' => 'name a file',
        'asterisk in filename is forbidden' => 'includes are read before loops run; choose among them with {optional} sections',
        'namespace is used already' => 'name the inner loop otherwise',
        '[*] is forbidden' => 'a key cannot be repeated; the element is *',
        'no parameter found' => 'name the array',
        "' is forbidden in variable" => 'put a blank before the default; for a brace that is text write {{',
        "could not find second '" => 'end the tag with the quote; for a brace that is text write {{',
    ];

    protected function messageFor(Tag $tag, Template $template): ?string
    {
        $loops = array_map(fn(Tag $loop): string => $loop->loopName(), $template->nesting->loopsAround($tag));
        $fault = $tag->kind->closes() ? null : Probe::fault($this->probe($tag, array_unique($loops)), $this->data($tag));
        $remedy = $fault === null ? null : array_find(self::REMEDIES, fn(string $_, string $words): bool => str_contains($fault, $words));

        return $remedy === null ? $fault : "$fault; $remedy";
    }

    /** @param array<string> $loops */
    private function probe(Tag $tag, array $loops): string
    {
        $opening = array_map(fn(string $loop): string => self::written("dynamic $loop,loops"), $loops);
        $closing = $tag->kind->closing();

        return implode('', $opening) . self::written($tag->text) . ($closing === null ? '' : "{{$closing->value}}")
            . str_repeat('{/dynamic}', count($loops));
    }

    /**
     * Loops that find an element, so that their names are compared, and what stands in them is rendered; a file to
     * include that is not there.
     *
     * @return array<array-key, mixed>
     */
    private function data(Tag $tag): array
    {
        $keys = $tag->kind === TagKind::Include ? new Path($tag->parameter)->keys : [];

        return (array) array_reduce(array_reverse($keys), fn(mixed $inner, string $key): array => [$key => $inner], '') + ['loops' => [[]]];
    }

    /** The tag with this text: inside a tag, the byte behind a brace is taken as it is. */
    private static function written(string $tagText): string
    {
        return '{' . preg_replace('/\{(?!})/', '{{', $tagText) . '}';
    }
}
