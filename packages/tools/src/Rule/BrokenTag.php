<?php

declare(strict_types=1);

namespace Zorvel\Tools\Rule;

use Zorvel\Syntax\Path;
use Zorvel\Syntax\Tag;
use Zorvel\Syntax\TagKind;
use Zorvel\Tools\Template\Probe;
use Zorvel\Tools\Template\Template;

/** A tag that the extension refuses: each is handed to it alone, with the names of the loops round it. */
final readonly class BrokenTag implements Rule
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

    public function check(Template $template): iterable
    {
        foreach ($template->tags as $tag) {
            $names = array_map(fn(Tag $loop): string => $loop->loopName(), $template->nesting->loopsAround($tag));
            $fault = $tag->kind->closes() ? null : $this->fault($tag, array_unique($names));
            if ($fault !== null) {
                $remedy = array_find(self::REMEDIES, fn(string $remedy, string $end): bool => str_contains($fault, $end));
                yield $tag->offset => $remedy === null ? $fault : "$fault; $remedy";
            }
        }
    }

    /** @param array<string> $loops */
    private function fault(Tag $tag, array $loops): ?string
    {
        $text = '';
        foreach ($loops as $loop) {
            $text .= self::written("dynamic $loop,loops");
        }
        $closing = $tag->kind->closing();
        $text .= self::written($tag->text) . ($closing === null ? '' : "{{$closing->value}}");

        return Probe::fault($text . str_repeat('{/dynamic}', count($loops)), $this->data($tag));
    }

    /**
     * Loops that find an array, so that their names are compared; a file to include that is not there.
     *
     * @return array<mixed>
     */
    private function data(Tag $tag): array
    {
        $loops = ['loops' => []];
        if ($tag->kind !== TagKind::Include) {
            return $loops;
        }
        $keys = new Path($tag->parameter)->keys;

        return (array) array_reduce(array_reverse($keys), fn(mixed $inner, string $key): array => [$key => $inner], '') + $loops;
    }

    /** The tag with this text: inside a tag, the byte behind a brace is taken as it is. */
    private static function written(string $tagText): string
    {
        return '{' . preg_replace('/\{(?!})/', '{{', $tagText) . '}';
    }
}
